"""The checks for the Mac find their faults, and accept the same without them. The headers of Cocoa
are those of the samples, with no more than these need."""

import contextlib
import io
import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path
from unittest import mock

from sample import SampleProject

import compilation
import mac_32_bit
import mac_linking
import mac_objects

OPTIONS = "add_compile_options(-Wall -Wextra)  # -Wno-unused-variable is for others\n"
COCOA = ('add_compile_options(-Wno-deprecated-declarations)\n'
         'add_link_options("-framework Foundation" "-framework AppKit")\n')
PRESETS = """{ "configurePresets": [
  { "name": "macos", "cacheVariables": {
    "CMAKE_OSX_ARCHITECTURES": "x86_64;i386", "CMAKE_OSX_DEPLOYMENT_TARGET": "10.6" } },
  { "name": "macos-current", "cacheVariables": {
    "CMAKE_OSX_ARCHITECTURES": "x86_64;arm64", "CMAKE_OSX_DEPLOYMENT_TARGET": "10.13" } }
] }
"""

OBJECT = """#import <objc/objc.h>
__attribute__((objc_root_class)) @interface NSObject { Class isa; }
+ (id)alloc;
- (id)init;
- (void)act;
- (void)finish:(SEL)selector;
@end
@interface NSString : NSObject
@end
typedef struct { double x, y; } NSPoint;
#ifdef __LP64__
typedef long NSInteger;
typedef unsigned long NSUInteger;
#else
typedef int NSInteger;
typedef unsigned int NSUInteger;
#endif
typedef struct { NSUInteger location, length; } NSRange;
"""
# What mac/Cocoa.h reaches.
HEADERS = {
    "include/objc/objc.h": """#pragma once
#ifdef BOOL_BOOL
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
""",
    "include/Foundation/NSObject.h": OBJECT,
    "include/Foundation/NSDate.h": "",
    "include/Foundation/NSMapTable.h": "",
    "include/Foundation/NSProxy.h": "@interface NSProxy : NSObject\n@end\n",
    "include/Foundation/NSDistantObject.h": "@interface NSDistantObject : NSObject\n@end\n",
    "include/Foundation/NSConnection.h": "@interface NSConnection : NSObject\n@end\n",
    "gaps.h": """#import <Foundation/NSObject.h>
#import <Foundation/NSConnection.h>
@protocol NSObject
@end
@interface NSException : NSObject
@end
@interface NSApplication : NSObject
- (void)endSheet:(id)sheet;
@end
@interface NSAlert : NSObject
@end
@interface NSTextView : NSObject
- (void)setAnchor:(NSInteger)anchor;
@end
@interface NSWindow : NSObject
- (NSPoint)convertScreenToBase:(NSPoint)point;
@end
@interface NSWorkspace : NSObject
@end
typedef const struct CFString *CFStringRef;
typedef const struct CFAllocator *CFAllocatorRef;
typedef unsigned CFStringEncoding;
extern "C" void NSLog(NSString *format, ...);
extern "C" int NSApplicationMain(int count, const char **arguments);
extern "C" CFStringRef CFURLCreateStringByAddingPercentEscapes(CFAllocatorRef, CFStringRef,
                                                               CFStringRef, CFStringRef,
                                                               CFStringEncoding);
enum { NSBorderlessWindowMask, NSCommandKeyMask, NSKeyDown, NSKeyDownMask, NSKeyUpMask,
       NSLeftMouseDown, NSLeftMouseDownMask, NSLeftMouseUpMask, NSOnState, NSRightMouseDownMask,
       NSRightMouseUpMask, NSWarningAlertStyle };
""",
}

MAIN = "int main(int n, char **v) { return NSApplicationMain(n, const_cast<const char **>(v)); }\n"

# A class whose destructor does more than free memory.
GUARD = """namespace { bool isBusy = false;
struct Guard { Guard() { isBusy = true; } ~Guard() { isBusy = false; } }; }
"""


# One for all tests, so that the headers are precompiled once.
FOLDER = tempfile.TemporaryDirectory(prefix="lint-")
unittest.addModuleCleanup(FOLDER.cleanup)


class MacChecks(SampleProject):
    """Samples are compiled together, because starting the compiler takes longest."""

    def setUp(self):
        self.root = Path(FOLDER.name).resolve()
        self.git("init", "--quiet")
        self.git("rm", "--quiet", "-r", "-f", "--ignore-unmatch", ".")
        self.headers = self.root / "headers"
        for name, text in HEADERS.items():
            self.write(f"headers/{name}", text)
        self.write("cmake/Options.cmake", OPTIONS)
        self.write("cmake/Cocoa.cmake", COCOA)
        self.write("CMakePresets.json", PRESETS)
        self.build = self.root / "build"
        # Few samples need the C++ library, and they include what they need of it.
        without = mock.patch.object(mac_objects, "CXX", ())
        without.start()
        self.addCleanup(without.stop)

    def add(self, **samples):
        for name, text in samples.items():
            self.write(f"app/{name}.mm", text)

    def compile(self):
        compilation.content_hash.cache_clear()
        return mac_objects.compile_all(self.root, self.build, self.headers)

    def findings_by_sample(self, lint):
        """What was found, by the sample's name."""
        compilation.content_hash.cache_clear()
        found = {}
        for each in lint(self.root, self.build, self.headers):
            found.setdefault(re.search(r"app/(\w+)\.", each).group(1), []).append(each)
        return found


class Compiling(MacChecks):
    def test_each_processor_and_runtime_is_compiled_for(self):
        self.add(Clean='#import "app/Sized.h"\n',
                 Warning="void f() { int unused; }\n",
                 OnlyLong="static_assert(sizeof(long) == 8);\n",
                 OnlySigned="#include <type_traits>\nstatic_assert(std::is_signed_v<BOOL>);\n"
                            "static_assert(!std::is_same_v<BOOL, bool>);\n",
                 OtherType="@interface Other : NSTextView\n@end\n@implementation Other\n"
                           "- (void)setAnchor:(long long)anchor { (void)anchor; }\n@end\n")
        self.write("app/Sized.h", "#include <vector>\ninline int f() { return 1; }\n")
        self.write("app/Plain.cpp", "#include <string>\nint g() { int unused; return 2; }\n")
        found = self.findings_by_sample(mac_objects.compile_all)
        self.assertEqual(sorted(found), ["OnlyLong", "OnlySigned", "OtherType", "Plain", "Warning"])
        # The same of each processor is said once.
        self.assert_finds(found["Warning"], "unused variable")
        self.assert_finds(found["Plain"], "unused variable")
        self.assert_finds(found["OnlyLong"], "sizeof(long) == 8")
        self.assert_finds(found["OnlySigned"], "static_assert failed")
        self.assertIn("conflicting parameter types", found["OtherType"][0])

    def test_what_later_systems_call_deprecated_needs_the_option_of_the_build(self):
        self.add(Connection="NSConnection *f() { return nullptr; }\n",
                 Sheet="void f(NSApplication *a) { [a endSheet:nullptr]; }\n",
                 Point="NSPoint f(NSWindow *w, NSPoint p) { return [w convertScreenToBase:p]; }\n",
                 Escapes="CFStringRef f(CFStringRef s) {\n  return "
                         "CFURLCreateStringByAddingPercentEscapes(nullptr, s, nullptr, s, 1);\n}\n",
                 Style="int f() { return NSWarningAlertStyle; }\n",
                 Key="int f() { return NSKeyDownMask; }\n",
                 Later="void f(NSApplication *a) { [a activateIgnoringOtherApps:1]; }\n")
        self.assertEqual(self.compile(), [])
        self.write("cmake/Cocoa.cmake", COCOA.replace("-Wno-deprecated-declarations", ""))
        found = self.findings_by_sample(mac_objects.compile_all)
        versions = {name: re.search(r"first deprecated in macOS ([\d.]+)", texts[0]).group(1)
                    for name, texts in found.items()}
        self.assertEqual(versions, {"Connection": "10.13", "Sheet": "10.10", "Point": "10.7",
                                    "Escapes": "10.11", "Style": "10.12", "Key": "10.12"})
        # Not for the old systems, for which nothing of it was deprecated.
        self.assertTrue(all(len(texts) == 1 for texts in found.values()), found)

    def test_only_what_has_changed_is_compiled_again(self):
        self.add(One='#import "app/One.h"\n', Other="int g() { return 2; }\n")
        self.write("app/One.h", "inline int f() { return 1; }\n")
        self.write("CMakePresets.json", re.sub("i386|arm64", "x86_64", PRESETS))
        for change, times in ((lambda: None, 2), (lambda: None, 0),
                              (lambda: self.write("app/One.h", "\n"), 1),
                              (lambda: self.write("headers/gaps.h", HEADERS["gaps.h"] + "\n"), 2),
                              (lambda: self.write("cmake/Options.cmake", "-Wall"), 2)):
            change()
            compilation.content_hash.cache_clear()
            with mock.patch.object(mac_objects.subprocess, "run", wraps=subprocess.run) as run:
                self.assertEqual(self.compile(), [])
            compiled = sum(any(each.endswith(".mm") for each in call.args[0])
                           for call in run.call_args_list)
            self.assertEqual(compiled, times)

    def test_without_headers_it_says_that_it_was_left_out(self):
        said = io.StringIO()
        with mock.patch.dict(os.environ), contextlib.redirect_stdout(said):
            os.environ.pop(mac_objects.HEADERS, None)
            mac_objects.run_if_there_are_headers(mac_objects.compile_all)
        self.assertIn("left out: COCOA_HEADERS", said.getvalue())


class ThirtyTwoBits(MacChecks):
    """Only destructors that no exception of 32 bit would run."""

    SKIPPED = {
        "Local": "void f(NSObject *o) { const Guard guard; [o act]; }\n",
        "Lambda": "void f(NSObject *o) { [&] { const Guard guard; [o act]; }(); }\n",
        "Element": "#include <vector>\n"
                   "void f(NSObject *o) { std::vector<Guard> guards; [o act]; }\n",
        "Member": "struct Both { Guard guard; };\nvoid f(NSObject *o) { Both both; [o act]; }\n",
        "Inlined": "struct Other { __attribute__((always_inline)) ~Other() { isBusy = false; } };\n"
                   "void f(NSObject *o) { const Other other; [o act]; }\n",
        "Lock": "#include <mutex>\nvoid f(NSObject *o, std::mutex &m) {\n"
                "  const std::lock_guard<std::mutex> guard(m);\n  [o act];\n}\n",
        "CleanUp": "void end(int *) { isBusy = false; }\n"
                   "void f(NSObject *o) {\n  __attribute__((cleanup(end))) int x = 1;\n"
                   "  (void)x;\n  [o act];\n}\n",
        "Before": "void f(NSObject *o) {\n  const Guard guard;\n  [o act];\n"
                  "  @try { [o act]; } @catch (NSException *) { }\n}\n",
        "Within": "void f(NSObject *o) {\n"
                  "  @try { const Guard guard; [o act]; } @catch (NSException *) { }\n}\n",
        "After": "void f(NSObject *o) {\n  const Guard guard;\n"
                 "  @try { [o act]; } @catch (NSException *) { }\n  [o act];\n}\n",
        "Other": "void f(NSObject *o) {\n"
                 "  @try { [o act]; } @catch (NSString *) { const Guard guard; [o act]; }\n}\n",
        "Static": "id f(NSObject *o) { static id const made = [o init]; return made; }\n",
    }
    RESTORED = {
        "Caught": "void f(NSObject *o) {\n  const Guard guard;\n"
                  "  @try { [o act]; } @catch (...) { }\n}\n",
        "Finally": "void f(NSObject *o) {\n  isBusy = true;\n"
                   "  @try { [o act]; } @finally { isBusy = false; [o act]; }\n}\n",
        "Synchronized": "void f(NSObject *o) { @synchronized(o) { [o act]; } }\n",
        "Strings": "#include <string>\n#include <vector>\n"
                   "void f(NSObject *o) {\n  std::u16string text(9, u'a');\n"
                   "  std::vector<unsigned> numbers(9);\n  [o act];\n}\n",
        "NoMessage": "int f() { const Guard guard; return 1; }\n",
    }

    def test_each_skipped_clean_up_is_found_and_nothing_else(self):
        for name, text in (self.SKIPPED | self.RESTORED).items():
            self.write(f"app/{name}.mm", GUARD + "bool busy() { return isBusy; }\n" + text)
        found = self.findings_by_sample(mac_32_bit.lint)
        self.assertEqual(sorted(found), sorted(self.SKIPPED))
        expected = {"Local": "Guard::~Guard()", "Within": "Guard::~Guard()", "Element": "vector<",
                    "Lock": "lock_guard", "CleanUp": "end(int*)", "Static": "made"}
        for name, skipped in expected.items():
            with self.subTest(name):
                self.assert_finds(found[name], skipped, " skips ")

    def test_what_the_platform_calls_by_a_selector_has_its_integers(self):
        method = """@interface {name} : NSObject
@end
@implementation {name}
- (void)answer{name}:({type})code {{ (void)code; }}
- (void)ask {{ [self finish:@selector(answer{selected}:)]; }}
@end
"""
        self.add(Wide=method.format(name="Wide", type="long long", selected="Wide"),
                 Fitting=method.format(name="Fitting", type="NSInteger", selected="Fitting"),
                 Called=method.format(name="Called", type="long long", selected="Fitting"))
        found = self.findings_by_sample(mac_32_bit.lint)
        self.assertEqual(sorted(found), ["Wide"])
        self.assert_finds(found["Wide"], "-[Wide answerWide:]", "NSInteger")


class Linking(MacChecks):
    STUB = """--- !tapi-tbd
tbd-version: 4
targets: [ i386-macos, x86_64-macos, arm64-macos ]
install-name: {name}
exports:
  - targets: [ i386-macos, x86_64-macos, arm64-macos ]
    symbols: [ _ask ]
...
"""
    CLOSED = "/usr/local/lib/libClosed.dylib"
    CALLS = 'extern "C" int ask();\nint g() { return ask(); }\n'

    def setUp(self):
        super().setUp()
        self.write("app/main.mm", MAIN)

    def link(self):
        compilation.content_hash.cache_clear()
        return mac_linking.lint(self.root, self.build, self.headers)

    def test_a_program_of_what_the_named_frameworks_have_links(self):
        self.write("packaging/Closed.tbd", self.STUB.format(name=self.CLOSED))
        self.add(Calls=self.CALLS, Class="id f() { return [[NSAlert alloc] init]; }\n")
        self.assertEqual(self.link(), [])

    def test_what_no_library_has_is_found_for_each_processor(self):
        self.add(Calls=self.CALLS)
        found = self.link()
        self.assertEqual(len(found), 3, found)
        for each in found:
            self.assertIn("undefined symbol: _ask", each)

    def test_a_framework_that_the_build_does_not_name_is_missed(self):
        self.write("cmake/Cocoa.cmake", COCOA.replace(' "-framework AppKit"', ""))
        found = self.link()
        self.assertEqual(len(found), 3, found)
        for each in found:
            self.assertIn("undefined symbol: _NSApplicationMain", each)

    def test_only_libraries_of_the_system_and_closed_ones_are_needed(self):
        self.add(Calls=self.CALLS)
        self.write("packaging/Closed.tbd", self.STUB.format(name=f"{self.root}/libClosed.dylib"))
        found = self.link()
        self.assertEqual(sum("libClosed.dylib, which no system has" in each for each in found), 2)
        self.assertEqual(sum("has the name of a folder of the build" in each for each in found), 2)
        self.assertEqual(len(found), 4, found)

    def test_no_folder_of_the_build_is_in_the_program(self):
        self.add(Place="const char *g() { return __FILE__; }\n")
        found = self.link()
        self.assertEqual(len(found), 2, found)
        for each in found:
            self.assertIn(f"folder of the build: {self.root}", each)

    def test_the_oldest_system_and_the_places_of_libraries_are_read_from_the_program(self):
        self.assertEqual(self.link(), [])
        compiler = mac_objects.compilers(self.root, self.build, self.headers)["x86_64"]
        objects = [compiler.object(source) for source in mac_objects.sources(self.root)]
        program, failure = mac_linking.link(self.root, compiler, objects, ["-rpath", "/opt/lib"])
        self.assertIsNone(failure)
        self.assertEqual(mac_linking.demands(self.root, program, "10.6", ()),
                         ["ContextMenuApp looks for libraries in /opt/lib"])
        self.assertIn("ContextMenuApp is for macOS 10.6 and later, not for 10.5",
                      mac_linking.demands(self.root, program, "10.5", ()))

    def test_the_lists_of_the_libraries_have_nothing_twice(self):
        symbols = [symbol for path in sorted(mac_linking.SDK.rglob("*.tbd"))
                   for symbol in mac_linking.symbols("arm64", "--defined-only", [path])]
        self.assertGreater(len(symbols), 50)
        self.assertEqual(len(symbols), len(set(symbols)))

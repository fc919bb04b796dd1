"""The lints that compile find what they are there for, and repeat nothing that has passed."""

import unittest
from pathlib import Path
from unittest import mock

from sample import TOOLS, SampleBuild

import api_floor
import compilation
import static_analysis

CLASS = """#import <AppKit/AppKit.h>
@interface Sample : NSObject
- (void)act;
@end
@implementation Sample
- (void)act {{
  {body}
}}
@end
"""


class ApiFloor(SampleBuild):
    def setUp(self):
        super().setUp()
        self.write(api_floor.HEADER, (TOOLS / "lint/api_floor.h").read_text())

    def findings_in(self, body, before=""):
        self.write("app/Sample.mm", before + CLASS.format(body=body))
        return api_floor.lint(self.root, self.build())

    def test_what_10_6_has_passes(self):
        body = """[[NSPasteboard generalPasteboard] setString:@"a" forType:NSStringPboardType];
          for (NSString *name in [NSArray arrayWithObject:@"a"]) [name lowercaseString];
          [[[[NSAlert alloc] init] autorelease] runModal];"""
        self.assertEqual(self.findings_in(body), [])

    def test_c_plus_plus_headers_still_compile(self):
        self.write("app/Other.mm", "#import <AppKit/AppKit.h>\n#include <string>\n#include <vector>\n"
                                   "template <class T> T twice(T t) { return t + t; }\n")
        self.assertEqual(self.findings_in(""), [])

    def test_a_newer_method_is_found(self):
        self.assert_finds(self.findings_in('[@"abc" containsString:@"a"];'), "containsString:")

    def test_a_newer_class_is_found(self):
        self.assert_finds(self.findings_in("[[[NSUUID alloc] init] release];"), "NSUUID")

    def test_an_extension_is_found(self):
        self.assert_finds(self.findings_in('[@" a" stringByTrimmingLeadSpaces];'),
                          "stringByTrimmingLeadSpaces")

    def test_a_macro_of_the_platform_is_found(self):
        self.assert_finds(self.findings_in("id a = nil; RELEASE(a);"), "RELEASE")

    def test_what_a_header_of_ours_declares_stays_visible(self):
        self.write("app/Gap.h", "#import <Foundation/Foundation.h>\n@interface NSString (Gap)\n"
                                "- (BOOL)containsString:(NSString *)part;\n@end\n")
        body = '[@"abc" containsString:@"a"];'
        self.assertEqual(self.findings_in(body, before='#import "app/Gap.h"\n'), [])


class StaticAnalysis(SampleBuild):
    def setUp(self):
        super().setUp()
        self.write(".clang-tidy", (TOOLS.parent / ".clang-tidy").read_text())

    def findings_in(self, body):
        self.write("app/Sample.mm", CLASS.format(body=body))
        return static_analysis.lint(self.root, self.build())

    def test_clean_code_passes(self):
        self.assertEqual(self.findings_in("[[[[NSObject alloc] init] autorelease] hash];"), [])

    def test_a_leaked_object_is_found(self):
        self.assert_finds(self.findings_in("id a = [[NSObject alloc] init]; [a hash];"),
                          "Sample.mm:7", "osx.cocoa.RetainCount")

    def test_an_object_released_too_often_is_found(self):
        self.assert_finds(self.findings_in("id a = [NSMutableArray array]; [a release];"),
                          "osx.cocoa.RetainCount")

    def test_a_rule_of_c_plus_plus_is_found(self):
        self.write("app/rule.cpp", "#include <string>\nint f(std::string a) {\n"
                                   "  std::string b = std::move(a);\n"
                                   "  return b.size() > a.size() ? 1 : 0;\n}\n")
        self.assert_finds(self.findings_in(""), "rule.cpp:4", "bugprone-use-after-move")

    def test_a_header_of_ours_is_looked_at(self):
        self.write("app/rule.h", "struct Base { virtual void f(); };\n"
                                 "struct Derived : Base { virtual void f(); };\n")
        self.write("app/rule.cpp", '#include "app/rule.h"\n')
        self.assert_finds(self.findings_in(""), "rule.h:2", "modernize-use-override")

    def test_a_leak_is_found_among_sources_that_are_looked_at_together(self):
        for name in ("First", "Second"):
            self.write(f"app/{name}.mm", CLASS.replace("Sample", name).format(body="[self hash];"))
        self.assert_finds(self.findings_in("id a = [[NSObject alloc] init]; [a hash];"),
                          "Sample.mm:7", "osx.cocoa.RetainCount")

    def test_sources_that_do_not_go_together_pass(self):
        self.write("app/one.cpp", "#include <string>\nint f() { return 1; }\n"
                                  "static std::string quoted(std::string a) { return a; }\n"
                                  "std::string g() { return quoted(\"a\") + \"b\"; }\n")
        self.write("app/other.cpp", "#include <iomanip>\nstatic int f(int a) { return a; }\n"
                                    "int h() { return f(1); }\n")
        self.assertEqual(self.findings_in(""), [])

    def test_tests_are_looked_at_only_with_all_folders(self):
        self.write("tests/rule.cpp", "struct Base { virtual void f(); };\n"
                                     "struct Derived : Base { virtual void f(); };\n")
        build = self.build()
        self.assertEqual(static_analysis.lint(self.root, build), [])
        self.assert_finds(static_analysis.lint(self.root, build, static_analysis.FOLDERS),
                          "rule.cpp:2", "modernize-use-override")

    def test_a_suppression_needs_check_and_reason(self):
        self.write("ui/a.h", "int a; // NOLINT(some-check): the platform calls it\n")
        self.assertEqual(static_analysis.suppressions(self.root), [])
        for bare in ("NOLINT", "NOLINT(some-check)", "NOLINTNEXTLINE: because"):
            with self.subTest(bare):
                self.write("ui/a.h", f"int a; // {bare}\n")
                self.assert_finds(static_analysis.suppressions(self.root), "ui/a.h:1")


class Flags(unittest.TestCase):
    def test_a_precompiled_header_is_left_out(self):
        unit = compilation.Unit(Path("/project"), {
            "directory": "/project/build", "file": "/project/app/a.mm",
            "command": "clang++ -I/project -include /project/Prefix.h -Winvalid-pch"
                       " -Xclang -include-pch -Xclang /project/build/cmake_pch.hxx.pch"
                       " -Xclang -include -Xclang /project/build/cmake_pch.hxx"
                       " -MD -MT a.o -MF a.o.d -o a.o -c /project/app/a.mm"})
        self.assertEqual(unit.flags(), ["clang++", "-I/project", "-include", "/project/Prefix.h"])


class Batches(SampleBuild):
    def test_only_sources_without_a_name_in_common_are_together(self):
        self.write("app/a.cpp", "namespace {\nconstexpr int kGap = 1;\n}\n")
        self.write("app/b.cpp", "namespace {\nconst double kGap{2};\n}\n")
        self.write("app/c.cpp", "int c() {\n  int kGap = 3;\n  return kGap;\n}\n")
        self.write("app/d.mm", "int d() { return 4; }\n")
        units = compilation.units(self.root, self.build(), ("app",), (".cpp", ".mm"))
        self.assertEqual([[unit.source.stem for unit in batch]
                          for batch in compilation.batches(units, 8)], [["a", "c"], ["b"], ["d"]])
        self.assertEqual([len(batch) for batch in compilation.batches(units, 1)], [1, 1, 1, 1])


class Cache(SampleBuild):
    """With a command in the place of the compiler that only says that it ran."""

    def setUp(self):
        super().setUp()
        self.write("app/a.h", "\n")
        self.write("app/a.cpp", '#include "app/a.h"\n')

    def runs(self, command=("true",), extra=()):
        """How often the command was run."""
        build = self.build()
        units = compilation.units(self.root, build, ("app",), (".cpp",))
        compilation.content_hash.cache_clear()
        with mock.patch.object(compilation.subprocess, "run", wraps=compilation.subprocess.run) as run:
            compilation.check_all(build, "sample", units, lambda unit, source: list(command), extra)
        return sum(call.args[0] == list(command) for call in run.call_args_list)

    def test_what_passed_is_not_repeated(self):
        self.assertEqual([self.runs(), self.runs()], [1, 0])

    def test_what_failed_is_repeated(self):
        self.assertEqual([self.runs(("false",)), self.runs(("false",))], [1, 1])

    def test_a_changed_source_header_configuration_or_command_is_looked_at_again(self):
        configuration = self.root / "configuration"
        configuration.write_text("1")
        self.assertEqual(self.runs(extra=[configuration]), 1)
        self.write("app/a.cpp", '#include "app/a.h"\n\n')
        self.assertEqual(self.runs(extra=[configuration]), 1)
        self.write("app/a.h", "\n\n")
        self.assertEqual(self.runs(extra=[configuration]), 1)
        configuration.write_text("2")
        self.assertEqual(self.runs(extra=[configuration]), 1)
        self.assertEqual(self.runs(("true", "again"), [configuration]), 1)


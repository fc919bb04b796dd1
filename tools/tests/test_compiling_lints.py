"""The lints that compile find their faults, and do not repeat what has passed."""

import unittest
from pathlib import Path
from unittest import mock

from sample import TOOLS, SampleBuild

import api_floor
import compilation
import static_analysis

# Reading all of AppKit takes longer than the samples themselves.
CLASS = """#import <Foundation/Foundation.h>
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
    """All samples are looked at together, because reading the platform's headers takes longest."""

    NEWER = {
        "NewerMethod": ('[@"abc" containsString:@"a"];', "containsString:"),
        "NewerClass": ("[[[NSUUID alloc] init] release];", "NSUUID"),
        "Extension": ('[@" a" stringByTrimmingLeadSpaces];', "stringByTrimmingLeadSpaces"),
        "Macro": ("id a = nil; RELEASE(a);", "RELEASE"),
    }
    OLD_ENOUGH = """[[NSPasteboard generalPasteboard] setString:@"a" forType:NSStringPboardType];
      for (NSString *name in [NSArray arrayWithObject:@"a"]) [name lowercaseString];
      [[[[NSAlert alloc] init] autorelease] runModal];"""

    def test_what_is_newer_than_10_6_is_found_and_nothing_else(self):
        self.write(api_floor.HEADER, (TOOLS / "lint/api_floor.h").read_text())
        for name, (body, _) in self.NEWER.items():
            self.write(f"app/{name}.mm", CLASS.format(body=body))
        self.write("app/OldEnough.mm",
                   "#import <AppKit/AppKit.h>\n" + CLASS.format(body=self.OLD_ENOUGH))
        self.write("app/CPlusPlus.mm", "#import <Foundation/Foundation.h>\n#include <string>\n"
                                       "#include <vector>\n"
                                       "template <class T> T twice(T t) { return t + t; }\n")
        self.write("app/Gap.h", "#import <Foundation/Foundation.h>\n@interface NSString (Gap)\n"
                                "- (BOOL)containsString:(NSString *)part;\n@end\n")
        self.write("app/Gap.mm", '#import "app/Gap.h"\n'
                   + CLASS.format(body='[@"abc" containsString:@"a"];'))
        findings = api_floor.lint(self.root, self.build())
        for name, (_, found) in self.NEWER.items():
            with self.subTest(name):
                self.assert_finds([text for text in findings if f"{name}.mm" in text], found)
        self.assertEqual(len(findings), len(self.NEWER), findings)

    def test_a_header_in_front_of_all_that_does_not_compile_is_shown(self):
        self.write(api_floor.HEADER, "#error not like this\n")
        self.write("app/OldEnough.mm", "int f() { return 1; }\n")
        self.assert_finds(api_floor.lint(self.root, self.build()), "api_floor.h", "not like this")


class LaterHeaders(SampleBuild):
    def test_a_header_of_the_cxx_library_that_needs_a_newer_system_is_found(self):
        self.write("text/a.h", "#include <string>\n#include <filesystem>\n")
        self.assert_finds(api_floor.later_headers(self.root), "text/a.h:2", "<filesystem>", "10.15")

    def test_others_and_those_outside_the_application_pass(self):
        self.write("text/a.h", "#include <mutex>\n// #include <chrono>\n#include \"thread\"\n")
        self.write("tests/a.cpp", "#include <thread>\n")
        self.assertEqual(api_floor.later_headers(self.root), [])


class StaticAnalysis(SampleBuild):
    """The samples are looked at together, as the sources of the project are."""

    FAULTS = {
        "Leaked.mm": (CLASS.format(body="id a = [[NSObject alloc] init]; [a hash];"),
                      ("Leaked.mm:7", "RetainCount")),
        "ReleasedTooOften.mm": (CLASS.format(body="id a = [NSMutableArray array]; [a release];")
                                .replace("Sample", "ReleasedTooOften"),
                                ("ReleasedTooOften.mm:7", "not owned", "RetainCount")),
        "rule.cpp": ("#include <string>\nint f(std::string a) {\n"
                     "  std::string b = std::move(a);\n"
                     "  return b.size() > a.size() ? 1 : 0;\n}\n",
                     ("rule.cpp:4", "bugprone-use-after-move")),
        "header.cpp": ('#include "app/header.h"\n', ("header.h:2", "modernize-use-override")),
    }
    RULE_OF_OVERRIDES = ("struct Base { virtual void f(); };\n"
                         "struct Derived : Base { virtual void f(); };\n")

    def setUp(self):
        super().setUp()
        self.write(".clang-tidy", (TOOLS.parent / ".clang-tidy").read_text())

    def test_each_fault_is_found_and_nothing_else(self):
        self.write("app/header.h", self.RULE_OF_OVERRIDES)
        for name, (text, _) in self.FAULTS.items():
            self.write(f"app/{name}", text)
        body = "[[[[NSObject alloc] init] autorelease] hash];"
        self.write("app/Clean.mm", CLASS.replace("Sample", "Clean").format(body=body))
        findings = static_analysis.lint(self.root, self.build())
        for name, (_, parts) in self.FAULTS.items():
            with self.subTest(name):
                self.assert_finds([text for text in findings if all(p in text for p in parts)],
                                  *parts)
        self.assertEqual(len(findings), len(self.FAULTS), findings)

    def test_sources_that_do_not_go_together_pass(self):
        self.write("app/one.cpp", "#include <string>\nint f() { return 1; }\n"
                                  "static std::string quoted(std::string a) { return a; }\n"
                                  "std::string g() { return quoted(\"a\") + \"b\"; }\n")
        self.write("app/other.cpp", "#include <iomanip>\nstatic int f(int a) { return a; }\n"
                                    "int h() { return f(1); }\n")
        self.assertEqual(static_analysis.lint(self.root, self.build()), [])

    def test_tests_are_looked_at_only_with_all_folders(self):
        self.write("tests/rule.cpp", self.RULE_OF_OVERRIDES)
        build = self.build()
        self.assertEqual(static_analysis.lint(self.root, build), [])
        self.assert_finds(static_analysis.lint(self.root, build, static_analysis.FOLDERS),
                          "rule.cpp:2", "modernize-use-override")

    def test_a_suppression_needs_check_and_reason(self):
        self.write("windows/a.h", "int a; // NOLINT(some-check): the platform calls it\n")
        self.assertEqual(static_analysis.suppressions(self.root), [])
        for bare in ("NOLINT", "NOLINT(some-check)", "NOLINTNEXTLINE: because"):
            with self.subTest(bare):
                self.write("windows/a.h", f"int a; // {bare}\n")
                self.assert_finds(static_analysis.suppressions(self.root), "windows/a.h:1")


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


class FileScopeNames(unittest.TestCase):
    def test_they_are_those_of_what_is_declared_and_not_of_its_types(self):
        for text, names in (
                ("constinit platform::ReplacedMethod<void(NSString *)> platformText;",
                 {"platformText"}),
                ("constinit platform::ReplacedMethod<id(std::vector<int>)>\n    platformText;\n",
                 {"platformText"}),
                ("std::map<int, std::vector<int>> &ends() {\n  return counted;\n}\n", {"ends"}),
                ("bool isLess(int a, int b) {\n  return a < b;\n}\nint later = 1;\n",
                 {"isLess", "later"}),
                ("#define OURS 1\n#pragma mark - Actions\n#pragma clang diagnostic pop\n",
                 {"OURS"}),
                ('static_assert(sizeof(int) == 4, "int");\n', set())):
            with self.subTest(text):
                self.assertEqual(compilation.file_scope_names(text), names)


class Cache(SampleBuild):
    """With a command in place of the compiler that only records that it ran."""

    def setUp(self):
        super().setUp()
        self.write("app/a.h", "\n")
        self.write("app/a.cpp", '#include "app/a.h"\n')

    def runs(self, command=("true",), extra=()):
        """How often the command was run."""
        build = self.build()
        units = compilation.units(self.root, build, ("app",), (".cpp",))
        compilation.content_hash.cache_clear()
        with mock.patch.object(compilation.subprocess, "run",
                               wraps=compilation.subprocess.run) as run:
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

"""Each lint finds its faults, and accepts the same text without them."""

import re
import shutil
import subprocess

from sample import TOOLS, SampleProject

import fixed_texts
import layering


class Layering(SampleProject):
    def setUp(self):
        super().setUp()
        self.write("agent/CMakeLists.txt", "add_component(agent\n    Proxy.mm)\n")
        self.write("windows/CMakeLists.txt",
                   "add_component(windows\n    Tab.mm)\nlink_components(windows agent)\n")
        self.write("windows/send/CMakeLists.txt", "add_component(send A.mm)\n"
                   "link_components(send windows)\n")
        self.write("app/CMakeLists.txt",
                   "add_component(application\n    a.mm)\nlink_components(application send)\n")

    def test_a_component_knows_what_it_is_linked_to_and_what_that_is_linked_to(self):
        self.write("agent/Proxy.h", '#import "agent/Reply.h"\n#import <Foundation/Foundation.h>\n')
        self.write("agent/Reply.h", "")
        self.write("windows/Tab.h", '#import "agent/Reply.h"\n')
        self.write("windows/send/A.h", '#import "windows/Tab.h"\n#import "agent/Reply.h"\n')
        self.write("app/a.h", '#import "windows/send/A.h"\n#import "agent/Reply.h"\n')
        self.assertEqual(layering.lint(self.root), [])

    def test_a_component_does_not_know_what_is_linked_to_it(self):
        self.write("windows/Tab.h", "")
        self.write("agent/Proxy.h", '#import "agent/Proxy.h"\n#import "windows/Tab.h"\n')
        self.assert_finds(layering.lint(self.root), "agent/Proxy.h:2", "windows/Tab.h")

    def test_a_component_in_another_is_a_component_of_its_own(self):
        self.write("windows/send/A.h", "")
        self.write("windows/Tab.h", '#import "windows/send/A.h"\n')
        self.assert_finds(layering.lint(self.root), "windows/Tab.h:1", "windows/send/A.h")

    def test_no_component_is_excepted(self):
        self.write("app/ContextMenuAppAppDelegate.h", "")
        self.write("windows/send/A.h", '#import "app/ContextMenuAppAppDelegate.h"\n')
        self.assert_finds(layering.lint(self.root), "windows/send/A.h:1")

    def test_components_in_a_circle_are_found(self):
        self.write("agent/CMakeLists.txt", "add_component(agent P.mm)\n"
                   "link_components(agent application)\n")
        self.assertTrue(all("in a circle: " in finding for finding in layering.lint(self.root)))
        self.assertTrue(layering.lint(self.root))

    def test_nobody_knows_the_development_kit_or_the_platform_layer(self):
        self.write("devkit/Store.h", "")
        self.write("platform/gnustep/Gap.h", "")
        self.write("app/main.mm", '#include "devkit/Store.h"\n')
        self.assert_finds(layering.lint(self.root), "app/main.mm:1")
        self.write("app/main.mm", '#include <platform/gnustep/Gap.h>\n')
        self.assert_finds(layering.lint(self.root), "app/main.mm:1")

    def test_an_include_without_its_folder_cannot_slip_through(self):
        self.write("agent/Reply.h", "")
        self.write("agent/Proxy.h", '#import "Reply.h"\n')
        self.assert_finds(layering.lint(self.root), "agent/Proxy.h:1")
        self.write("windows/Tab.h", "")
        self.write("agent/Proxy.h", '#import "../windows/Tab.h"\n')
        self.assert_finds(layering.lint(self.root), "agent/Proxy.h:1")

    def test_an_include_in_a_comment_is_none(self):
        self.write("windows/Tab.h", "")
        self.write("agent/Proxy.h", '// #import "windows/Tab.h"\n/*\n#import "windows/Tab.h"\n*/\n')
        self.assertEqual(layering.lint(self.root), [])

    def test_conditional_compilation_is_found_but_for_the_named_exceptions(self):
        self.write("app/a.mm", "#ifdef GNUSTEP\n#endif\n")
        self.write("agent/AgentIdentity.h", "#ifndef KRV_AGENT_BUNDLE_IDENTIFIER\n#endif\n")
        self.assert_finds(layering.lint(self.root), "app/a.mm:1", "#ifdef GNUSTEP")

    def test_every_form_of_condition_is_found(self):
        for condition in ("#if 1", "# if 1", "#ifndef A", "  #elif 1"):
            with self.subTest(condition):
                self.write("windows/a.mm", condition + "\n")
                self.assert_finds(layering.lint(self.root), "windows/a.mm:1")

    def test_the_platform_layer_may_use_conditions(self):
        self.write("platform/gnustep/a.mm", "#if 1\n#endif\n")
        self.assertEqual(layering.lint(self.root), [])


class FixedTexts(SampleProject):
    def list(self, *lines):
        self.write(fixed_texts.LIST, "".join(line + "\n" for line in lines))

    def test_a_text_must_stand_in_its_folder_as_a_whole_literal(self):
        self.list('agent\t"Launching.."')
        self.write("agent/a.mm", 'NSString *a = @"Launching..";\n')
        self.assertEqual(fixed_texts.lint(self.root), [])
        self.write("agent/a.mm", 'NSString *a = @"Launching...";\n')
        self.assert_finds(fixed_texts.lint(self.root), "Launching..", "does not stand in agent")

    def test_a_text_may_stand_as_utf_16(self):
        self.list('agent\t", "')
        self.write("agent/a.mm", 'constexpr std::u16string_view a = u", ";\n')
        self.assertEqual(fixed_texts.lint(self.root), [])
        self.write("agent/a.mm", 'constexpr std::u16string_view a = u",";\n')
        self.assert_finds(fixed_texts.lint(self.root), "does not stand in agent")

    def test_a_comment_or_another_folder_does_not_count(self):
        self.list('agent\t"value"')
        self.write("agent/a.mm", '// @"value"\n/* @"value" */\nconst char *b = "value";\n')
        self.write("app/a.mm", 'NSString *a = @"value";\n')
        self.assert_finds(fixed_texts.lint(self.root), "value")

    def test_adjacent_literals_are_one_text(self):
        self.list('plugin\t"one two"')
        self.write("plugin/a.mm", 'f(@"one "\n  @"two");\n')
        self.assertEqual(fixed_texts.lint(self.root), [])

    def test_any_of_several_places_will_do(self):
        self.list('agent app/b.mm\t"name"')
        self.write("app/b.mm", 'f(@"name");\n')
        self.assertEqual(fixed_texts.lint(self.root), [])

    def test_a_log_line_that_is_not_listed_is_found(self):
        self.list('app\t"known"')
        self.write("app/a.mm", 'f(@"known");\nNSLog(@"unknown %d", 1);\n')
        self.assert_finds(fixed_texts.lint(self.root), "app/a.mm:2", "unknown %d")

    def test_a_log_line_listed_for_another_folder_is_found(self):
        self.list('app\t"known"')
        self.write("app/a.mm", 'NSLog(@"known");\n')
        self.write("windows/a.mm", 'NSLog(@"known");\n')
        self.assert_finds(fixed_texts.lint(self.root), "windows/a.mm:1")

    def test_a_log_line_may_be_a_constant_but_nothing_computed(self):
        self.list('app\t"known"')
        self.write("app/a.h", 'inline NSString *const kKnown = @"known";\n')
        self.write("app/a.mm", "NSLog(texts::kKnown);\n")
        self.assertEqual(fixed_texts.lint(self.root), [])
        self.write("app/a.mm", "NSLog([reply objectForKey:kKnown]);\n")
        self.assert_finds(fixed_texts.lint(self.root), "app/a.mm:1")

    def test_a_line_of_another_form_is_found(self):
        self.list("app  value")
        self.assert_finds(fixed_texts.lint(self.root), "fixed_texts.txt:1")


class Scripts(SampleProject):
    def run_lint(self):
        return subprocess.run([TOOLS / "lint/scripts", self.root], capture_output=True, text=True)

    def lint(self):
        """The files in which something is found, once each."""
        result = self.run_lint()
        self.assertEqual(result.stderr, "")
        found = re.findall(r"^In (\S+) line|^(\S+?):\d+:", result.stdout, re.MULTILINE)
        self.assertEqual(result.returncode != 0, bool(found), result.stdout)
        return sorted({shell or python for shell, python in found})

    def test_scripts_are_known_by_their_suffix_or_by_their_first_line(self):
        for shell in ("a.sh", "folder/b.sh"):
            self.write(shell, "# shellcheck shell=sh\nif true; then\n")
        for python in ("a.py", "folder/b.py", "folder/c.py.in"):
            self.write(python, "def f(:\n")
        for number, interpreter in enumerate(("/bin/sh", "/bin/bash", "/usr/bin/env bash",
                                              "/bin/bash -e")):
            self.write(f"shell{number}", f"#!{interpreter}\nif true; then\n")
        for number, interpreter in enumerate(("/usr/bin/python3 -IS", "/usr/bin/env python3")):
            self.write(f"python{number}", f"#!{interpreter}\ndef f(:\n")
        self.assertEqual(self.lint(), [
            "a.py", "a.sh", "folder/b.py", "folder/b.sh", "folder/c.py.in", "python0", "python1",
            "shell0", "shell1", "shell2", "shell3"])

    def test_what_parses_and_is_wrong_is_found(self):
        self.write("run", '#!/bin/bash\nrm -rf "$1/"*\nrm $2\n')
        self.write("a.py", "import os\nimport sys\n\nprint(sys.path, undefined)\n")
        self.assertEqual(self.lint(), ["a.py", "run"])

    def test_what_is_passed_over_needs_its_name_and_a_reason(self):
        # In pieces, because the lint checks this file, too.
        ignored, disabled = "# no" "qa", "# shellcheck " "disable=SC2086"
        self.write("a.py", f"import os  {ignored}: F401  for whoever imports this\n")
        self.write("a.sh", f"#!/bin/sh\n{disabled} # several words\nrm $1\n")
        self.assertEqual(self.lint(), [])
        for bare in (ignored, f"{ignored}: F401", f"{ignored}  because"):
            with self.subTest(bare):
                self.write("a.py", f"import os  {bare}\n")
                self.assertEqual(self.lint(), ["a.py"])
        self.write("a.py", "")
        self.write("a.sh", f"#!/bin/sh\n{disabled}\nrm $1\n")
        self.assertEqual(self.lint(), ["a.sh"])

    def test_sound_scripts_and_other_files_pass(self):
        self.assertEqual(self.lint(), [])
        self.write("run", "#!/usr/bin/env bash\ntrue\n")
        self.write("picture.png", b"\x89PNG\xff")
        self.write("a.md", "if true; then\n")
        self.assertEqual(self.lint(), [])

    def test_what_is_deleted_and_not_yet_committed_is_left_out(self):
        self.write("a.py", "def f(:\n")
        self.write("a.sh", "if true; then\n")
        for name in ("a.py", "a.sh"):
            (self.root / name).unlink()
        self.assertEqual(self.lint(), [])

    def test_without_version_control_it_fails(self):
        shutil.rmtree(self.root / ".git")
        self.assertNotEqual(self.run_lint().returncode, 0)

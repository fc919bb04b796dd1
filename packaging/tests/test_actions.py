#!/usr/bin/env python3
"""Which entries an item gets, in which language, and the output of the programs that file managers
start."""

import json
import os
import pwd
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import ACTIONS, BUILD, DesktopTest, NOT_REACHED, output, wait_until, windows

sys.path.insert(0, str(ACTIONS))

from brisvale_actions import choice, entries, place, texts  # noqa: E402  found only now

COPY, FILE, FOLDER, SHARE = (entries.COPY_LINK, entries.SEND_FILE, entries.SEND_FOLDER,
                             entries.SHARE_FOLDER)


class Places(DesktopTest):

    def relative(self, path):
        return place.relative(str(path), str(self.synced))

    def test_the_synced_folder_is_the_users(self):
        del os.environ["BV_SYNCED_FOLDER"]
        name = pwd.getpwuid(os.geteuid()).pw_name
        self.assertEqual(place.synced_folder(), f"/Users/{name}/Brisvale")

    def test_items_inside_are_known_by_their_path_from_the_synced_folder(self):
        self.assertEqual(self.relative(self.file("MyDocs/a/ä.txt")), "MyDocs/a/ä.txt")
        self.assertEqual(self.relative(f"{self.folder('Team')}/"), "Team")

    def test_the_synced_folder_is_no_item(self):
        self.assertIsNone(self.relative(self.synced))

    def test_neighbours_and_parents_are_outside(self):
        self.assertIsNone(self.relative(self.file("Brisvale-old/a", root=self.synced.parent)))
        self.assertIsNone(self.relative(self.users))
        self.assertIsNone(self.relative("/"))

    def test_a_link_to_the_synced_folder_leads_inside(self):
        self.file("MyDocs/a.txt")
        (self.home / "link").symlink_to(self.synced)
        self.assertEqual(self.relative(self.home / "link" / "MyDocs" / "a.txt"), "MyDocs/a.txt")

    def test_a_link_in_the_synced_folder_is_an_item_and_what_is_behind_it_none(self):
        self.file("elsewhere/a.txt", root=self.home)
        (self.synced / "link").symlink_to(self.home / "elsewhere")
        self.assertEqual(self.relative(self.synced / "link"), "link")
        self.assertIsNone(self.relative(self.synced / "link" / "a.txt"))

    def test_a_link_within_the_synced_folder_leads_to_the_item_behind_it(self):
        self.file("MyDocs/a.txt")
        (self.synced / "link").symlink_to(self.synced / "MyDocs")
        self.assertEqual(self.relative(self.synced / "link" / "a.txt"), "MyDocs/a.txt")

    def test_another_case_of_letters_is_another_folder_where_the_disk_says_so(self):
        self.file("a.txt")
        other = self.file("brisvale/a.txt", root=self.synced.parent)
        self.assertIsNone(self.relative(other))

    def test_another_case_of_letters_is_the_same_folder_where_the_disk_says_so(self):
        # Behaves as a disk without letter case does, for one name.
        (self.synced.parent / "BRISVALE").symlink_to(self.synced)
        self.file("a.txt")
        self.assertEqual(self.relative(self.synced.parent / "BRISVALE" / "a.txt"), "a.txt")

    def test_names_that_are_no_text_are_found(self):
        name = os.fsencode(self.synced) + b"/\xff.txt"
        open(name, "wb").close()
        self.assertEqual(self.relative(os.fsdecode(name)), "\udcff.txt")

    def test_without_a_synced_folder_nothing_is_inside(self):
        self.synced.rmdir()
        self.assertIsNone(self.relative(self.synced / "a.txt"))

    def test_no_path_is_no_item_even_in_a_folder_that_is_one(self):
        os.chdir(self.folder("MyDocs"))
        self.assertIsNone(self.relative(""))

    def test_a_relative_path_is_one_from_the_current_folder(self):
        os.chdir(self.file("MyDocs/a.txt").parent)
        self.assertEqual(self.relative("a.txt"), "MyDocs/a.txt")
        self.assertEqual(self.relative("."), "MyDocs")

    def test_in_a_current_folder_that_has_been_removed_nothing_is_inside(self):
        os.chdir(self.folder("MyDocs"))
        os.rmdir(self.synced / "MyDocs")
        self.assertIsNone(self.relative("."))
        self.assertIsNone(self.relative("a.txt"))


class Entries(DesktopTest):

    def entries(self, *paths):
        return entries.entries_for([str(path) for path in paths])

    def test_share_is_for_what_begins_like_my_docs_in_any_case_of_letters(self):
        self.assertEqual(self.entries(self.folder("MyDocs")), [COPY, FOLDER, SHARE])
        self.assertEqual(self.entries(self.folder("mydocs/Plans")), [COPY, FOLDER, SHARE])
        self.assertEqual(self.entries(self.folder("MyDocsOld")), [COPY, FOLDER, SHARE])
        self.assertEqual(self.entries(self.folder("Team/MyDocs")), [COPY, FOLDER])

    def test_files_cannot_be_shared(self):
        self.assertEqual(self.entries(self.file("MyDocs/a.txt")), [COPY, FILE])

    def test_nothing_and_several_get_no_entries(self):
        self.assertEqual(self.entries(), [])
        self.assertEqual(entries.entries_for([""]), [])
        self.assertEqual(self.entries(self.file("a.txt"), self.file("b.txt")), [])

    def test_the_program_offers_what_the_extensions_do(self):
        folder = self.folder("Team")
        for verb, answer in (("copy-link", "true"), ("send-file", "false"),
                             ("send-folder", "true"), ("share", "false")):
            self.assertEqual(output(ACTIONS / "action", "offers", verb, folder), answer, verb)


class Texts(unittest.TestCase):

    def chosen(self, **variables):
        with open(ACTIONS / "brisvale_actions" / "texts.json", encoding="utf-8") as file:
            available = json.load(file)
        return [texts.localization_for(locale, available)
                for locale in texts.languages_wanted(variables)]

    def test_the_users_languages_are_chosen_as_by_the_application(self):
        self.assertEqual(self.chosen(LANG="de_AT.UTF-8"), ["de"])
        self.assertEqual(self.chosen(LANG="pt_PT.UTF-8"), ["pt-BR"])
        self.assertEqual(self.chosen(LANG="zh_CN.UTF-8"), ["zh-Hans"])
        self.assertEqual(self.chosen(LANG="zh_TW.UTF-8"), [None])
        self.assertEqual(self.chosen(LANG="C.UTF-8"), [])
        self.assertEqual(self.chosen(LANGUAGE="nl:fr", LC_ALL="it_IT"), [None, "fr"])
        self.assertEqual(self.chosen(LC_ALL="it_IT@euro", LANG="ja_JP"), ["it"])

    def test_a_language_without_texts_falls_back_to_the_next(self):
        code = ("import sys; sys.path.insert(0, sys.argv[1]);"
                "from brisvale_actions.texts import text; print(text('copyLinkMenuTitleKey'))")

        def label(languages):
            return subprocess.run([sys.executable, "-B", "-c", code, ACTIONS], text=True,
                                  check=True, env={"LANGUAGE": languages, "PYTHONUTF8": "1"},
                                  stdout=subprocess.PIPE).stdout.strip()
        self.assertEqual(label("nl:fr"), "Copier le lien")
        self.assertEqual(label("nl"), "Copy Link")
        self.assertEqual(label("ja"), "リンクをコピー")


class Choices(DesktopTest):

    def told(self, verb, path):
        """The exit code and the message, as it is written for those who have no desktop."""
        environment = {name: value for name, value in os.environ.items() if name != "DISPLAY"}
        done = subprocess.run([ACTIONS / "action", "run", verb, path], env=environment, text=True,
                              stderr=subprocess.PIPE, check=False)
        return done.returncode, done.stderr

    def test_without_the_application_the_user_is_told(self):
        code, message = self.told("copy-link", self.file("a.txt"))
        self.assertEqual(code, choice.NOT_RUNNING)
        self.assertTrue(message.startswith(f"{NOT_REACHED}\nCheck your internet"), message)

    def test_an_item_outside_is_told_of(self):
        code, message = self.told("copy-link", self.file("a.txt", root=self.home))
        self.assertEqual(code, choice.OUTSIDE)
        self.assertIn("is not on Brisvale yet", message)

    def test_a_folder_of_others_is_not_shared(self):
        code, message = self.told("share", self.folder("Team"))
        self.assertEqual(code, choice.OUTSIDE)
        self.assertIn("do not have permission", message)

    def test_without_the_client_its_absence_is_told_of(self):
        os.environ["PATH"] = str(self.home)
        code, message = self.told("copy-link", self.file("a.txt"))
        self.assertEqual(code, 127)
        self.assertIn("'contextmenu'", message)

    def test_no_path_is_told_of_and_is_not_the_current_folder(self):
        self.start_application()
        os.chdir(self.folder("MyDocs"))
        code, message = self.told("copy-link", "")
        self.assertEqual(code, choice.NOT_THERE)
        self.assertIn("is not on Brisvale yet", message)

    def test_a_missing_item_is_reported(self):
        self.start_application()
        os.chdir(self.folder("MyDocs"))
        for path in ("a.txt", str(self.synced / "MyDocs" / "a.txt"), "gone/a.txt"):
            code, message = self.told("copy-link", path)
            self.assertEqual(code, choice.NOT_THERE, path)
            self.assertIn("is not on Brisvale yet", message)

    def test_a_current_folder_that_has_been_removed_is_told_of(self):
        os.chdir(self.folder("MyDocs"))
        os.rmdir(self.synced / "MyDocs")
        code, message = self.told("copy-link", ".")
        self.assertEqual(code, choice.OUTSIDE)
        self.assertIn("is not on Brisvale yet", message)

    def test_the_current_folder_is_an_item_by_its_name(self):
        self.start_application()
        os.chdir(self.folder("Team"))
        self.assertEqual(self.told("copy-link", "."), (0, ""))
        self.assert_clipboard_gets_link_of("getLinkForFolder")

    def test_wrong_arguments_are_told_of_in_one_line(self):
        file = self.file("a.txt")
        for arguments, word in (
                (("run", "copy-link", file, file), "run copy-link takes exactly one path, not 2"),
                (("run", "copy-link"), "run copy-link takes exactly one path, not 0"),
                (("offers", "share", file, file), "offers share takes exactly one path, not 2"),
                (("run", "delete", file), 'run knows no "delete", only')):
            done = subprocess.run([ACTIONS / "action", *arguments], text=True, check=False,
                                  stderr=subprocess.PIPE, stdout=subprocess.PIPE)
            self.assertEqual((done.returncode, done.stdout), (2, ""))
            self.assertTrue(done.stderr.startswith(f"action: {word}"), done.stderr)
            self.assertEqual(done.stderr.count("\n"), 1)

    def test_an_item_behind_a_link_is_known_to_the_service(self):
        self.start_application()
        self.file("MyDocs/-- ä.txt")
        (self.home / "link").symlink_to(self.synced)
        self.assertEqual(self.told("copy-link", self.home / "link" / "MyDocs" / "-- ä.txt"),
                         (0, ""))
        self.assert_clipboard_gets_link_of("getLinkForFile")


class Success(DesktopTest):
    """A click on an entry that copies a link, on a desktop that shows notifications."""

    def setUp(self):
        super().setUp()
        self.shown = self.home / "notifications"
        self.shown.touch()
        desktop = self.home / "bin" / "notify-send"
        desktop.parent.mkdir()
        desktop.write_text(f"""#!/bin/sh
while [ "$1" != -- ]; do shift; done
printf '%s|%s\\n' "$2" "$3" >>'{self.shown}'
""", encoding="utf-8")
        desktop.chmod(0o755)
        os.environ["PATH"] = f"{desktop.parent}:{os.environ['PATH']}"
        os.environ["XDG_CONFIG_HOME"] = str(self.home / "config")

    def copy(self, path):
        """Returns what was shown, a line each."""
        # Without the search for leaks of a build with the address sanitizer, by which the programs
        # that it calls would fail: at their end the platform forgets what it has kept.
        subprocess.run([ACTIONS / "action", "run", "copy-link", path], stderr=subprocess.DEVNULL,
                       check=False, env={**os.environ, "ASAN_OPTIONS": "detect_leaks=0"})
        return self.shown.read_text(encoding="utf-8").splitlines()

    def set(self, content):
        file = self.home / "config" / "brisvale" / "settings.ini"
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(content)

    def test_one_notification_a_click_says_whose_link_is_on_the_clipboard(self):
        self.start_application()
        told = self.copy(self.file("MyDocs/a & <b>.txt"))
        self.assertEqual(told, ["a & <b>.txt|The link is on the clipboard."])
        os.environ["LANG"] = "de_DE.UTF-8"
        os.environ["LC_ALL"] = ""
        told = self.copy(self.folder("Team"))
        self.assertEqual(told[1:], ["Team|Der Link befindet sich in der Zwischenablage."])

    def test_a_name_that_is_no_text_is_told_of_too(self):
        self.start_application()
        name = os.fsencode(self.synced) + b"/\xff.txt"
        open(name, "wb").close()
        self.assertEqual(self.copy(name), ["\ufffd.txt|The link is on the clipboard."])

    def test_a_click_without_a_link_is_told_of_once_by_whoever_noticed(self):
        told = self.copy(self.file("a.txt"))
        self.assertEqual([line.split("|")[0] for line in told], [NOT_REACHED])

    def test_the_applications_alert_is_enough(self):
        agent = self.start_application()
        agent.kill()
        agent.wait()
        entry, _ = self.start(ACTIONS / "action", "run", "copy-link", self.file("a.txt"))
        alert = wait_until(
            "the alert is up", lambda: windows("--classname", "ContextMenuApp"))[0]

        def dismissed():
            output("xdotool", "windowactivate", "--sync", alert, "key", "Return")
            return entry.poll() is not None
        wait_until("the entry ends with the alert", dismissed)
        self.assertEqual(self.shown.read_text(), "")

    def test_the_user_can_do_without(self):
        self.start_application()
        self.set(b"[notifications]\ncopied = off\n")
        self.assertEqual(self.copy(self.file("a.txt")), [])
        for unreadable in (b"[notifications]\ncopied = perhaps\n", b"copied", b"\xff\xfe"):
            self.set(unreadable)
            self.shown.write_text("")
            self.assertEqual(len(self.copy(self.file("a.txt"))), 1, unreadable)

    def test_a_desktop_without_notifications_is_not_disturbed(self):
        self.start_application()
        (self.home / "bin" / "notify-send").unlink()
        for program in ("zenity", "kdialog", "xmessage"):
            dialog = self.home / "bin" / program
            dialog.write_text(f"#!/bin/sh\necho {program} >>'{self.shown}'\n", encoding="utf-8")
            dialog.chmod(0o755)
        path = os.environ["PATH"]
        os.environ["PATH"] = f"{BUILD / 'devkit'}:{self.home / 'bin'}"
        self.assertEqual(self.copy(self.file("a.txt")), [])
        os.environ["PATH"] = path


class Launcher(DesktopTest):

    def launched(self):
        """The exit code and what is said; the application itself is not installed here."""
        done = subprocess.run([BUILD / "packaging" / "linux" / "brisvale-context-menu"], text=True,
                              stderr=subprocess.PIPE, check=False)
        return done.returncode, done.stderr

    def test_beside_an_application_that_answers_it_does_nothing(self):
        self.start_application()
        self.assertEqual(self.launched(), (0, ""))

    def test_beside_one_that_does_not_answer_it_says_so(self):
        lock = Path(os.environ["XDG_RUNTIME_DIR"]) / "brisvale-context-menu.lock"
        self.start("/usr/bin/flock", "--close", lock, "sleep", "600")
        wait_until("the lock is held", lambda: subprocess.run(
            ["flock", "--nonblock", lock, "true"], check=False).returncode == 1)
        code, said = self.launched()
        self.assertEqual(code, 3)
        self.assertEqual(said, "brisvale-context-menu: it is running already and does not answer; "
                               "it may be starting\n")


if __name__ == "__main__":
    unittest.main()

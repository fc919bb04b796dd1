#!/usr/bin/env python3
"""What is in the Debian packages, and whether the programs that read its files accept them."""

import codecs
import gzip
import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["BUILD_FOLDER"])
APPLICATION = "brisvale-context-menu"
KIT = "brisvale-context-menu-devkit"
THUNAR = "brisvale-context-menu-thunar"


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=False)
    if done.returncode:
        raise AssertionError(f"{command}: {done.stdout}")
    return done.stdout


class Packages(unittest.TestCase):

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        run("cpack", "--config", BUILD / "CPackConfig.cmake", "-B", cls.folder)
        cls.files = {}
        for package in (APPLICATION, KIT, THUNAR):
            file, = cls.folder.glob(f"{package}_*.deb")
            cls.files[package] = file
            run("dpkg-deb", "--extract", file, cls.folder / package)

    def path(self, package, name):
        path = self.folder / package / name
        self.assertTrue(path.exists(), f"{package} has no {name}")
        return path

    def field(self, package, name):
        return run("dpkg-deb", "--field", self.files[package], name).strip()

    def test_the_application_comes_with_its_resources(self):
        bundle = "usr/lib/GNUstep/Applications/ContextMenuApp.app"
        self.assertTrue(os.access(self.path(APPLICATION, f"{bundle}/ContextMenuApp"), os.X_OK))
        resources = self.path(APPLICATION, f"{bundle}/Resources")
        names = {file.relative_to(resources).as_posix() for file in resources.rglob("*.*")}
        for name in ("MainMenu.xib", "MainWindow.xib", "ShareFolder.xib", "Info-gnustep.plist",
                     "025_Ostrel_Combo_Mac.icns"):
            self.assertIn(name, names)

    def test_the_string_tables_are_encoded_as_the_platform_reads_them(self):
        resources = "usr/lib/GNUstep/Applications/ContextMenuApp.app/Resources"
        tables = list((ROOT / "resources").glob("*.lproj/*.strings"))
        self.assertEqual(len(tables), 8)
        for table in tables:
            name = table.relative_to(ROOT / "resources")
            installed = self.path(APPLICATION, f"{resources}/{name}").read_bytes()
            self.assertIn(installed[:2], (codecs.BOM_UTF16_LE, codecs.BOM_UTF16_BE), name)
            self.assertEqual(installed.decode("utf-16"), table.read_text(encoding="utf-8"), name)

    def test_everything_but_the_settings_is_installed_below_the_prefix(self):
        root = self.folder / "another_prefix"
        run("env", f"DESTDIR={root}", "cmake", "--install", BUILD, "--prefix", "/opt/brisvale")
        self.assertTrue((root / "opt/brisvale/bin/contextmenu").exists())
        elsewhere = [path.relative_to(root).as_posix() for path in root.rglob("*")
                     if path.is_file() and not path.is_relative_to(root / "opt/brisvale")]
        self.assertEqual(elsewhere, ["etc/xdg/autostart/com.veldane.wayfold.contextmenu.desktop"])

    def test_every_file_manager_gets_its_entries(self):
        for manager in ("nautilus", "nemo", "caja"):
            self.path(APPLICATION, f"usr/share/{manager}-python/extensions/brisvale.py")
        self.path(THUNAR, "usr/share/thunarx-python/extensions/brisvale.py")
        for name in ("copy-link", "send-file", "send-folder", "share"):
            self.path(APPLICATION, f"usr/share/file-manager/actions/brisvale-{name}.desktop")
        for name in ("file", "folder", "share"):
            self.path(APPLICATION, f"usr/share/kio/servicemenus/brisvale-{name}.desktop")
        self.path(APPLICATION, "usr/lib/GNUstep/Services/BrisvaleActions.service/BrisvaleActions")

    def test_the_entries_start_programs_that_are_installed(self):
        share = self.folder / APPLICATION / "usr/share"
        texts = [file.read_text(encoding="utf-8") for folder in ("file-manager", "kio", "dbus-1")
                 for file in (share / folder).rglob("*.*") if file.is_file()]
        programs = {found for text in texts for found in re.findall(r"^Exec=(\S+)", text, re.M)}
        self.assertEqual(len(programs), 2)
        for program in programs:
            self.assertTrue(os.access(self.path(APPLICATION, program.lstrip("/")), os.X_OK))

    def test_programs_find_the_substitute_libraries_and_the_system_looks_for_others(self):
        self.path(KIT, "usr/lib/brisvale-context-menu-devkit/engine/libBVSyncEngine.I.so")
        for name in ("usr/bin/contextmenu",
                     "usr/lib/GNUstep/Applications/ContextMenuApp.app/ContextMenuApp"):
            dynamic = run("readelf", "--dynamic", self.path(APPLICATION, name))
            self.assertEqual(re.findall(r"RUNPATH.*\[(.*)\]", dynamic),
                             ["/usr/lib/brisvale-context-menu-devkit/engine"])
        self.assertEqual(self.field(KIT, "Provides"), "brisvale-sync-engine")
        self.assertIn("brisvale-sync-engine", self.field(APPLICATION, "Depends"))

    def test_thunar_gets_its_extension_only_with_what_it_needs_to_load_it(self):
        self.assertIn("gir1.2-thunarx-3.0", self.field(THUNAR, "Depends"))
        self.assertFalse((self.folder / APPLICATION / "usr/share/thunarx-python").exists())

    def test_the_agent_of_the_development_kit_is_in_its_package_only(self):
        self.path(KIT, "usr/lib/GNUstep/Applications/VeldaneKRVAgent.app/VeldaneKRVAgent")
        files = (self.folder / APPLICATION).rglob("*")
        self.assertEqual([file for file in files if "VeldaneKRVAgent" in file.name], [])

    def test_it_starts_at_login_and_can_be_told_not_to(self):
        name = "etc/xdg/autostart/com.veldane.wayfold.contextmenu.desktop"
        self.path(APPLICATION, name)
        control = self.folder / "control"
        run("dpkg-deb", "--control", self.files[APPLICATION], control)
        self.assertEqual((control / "conffiles").read_text().split(), [f"/{name}"])

    def test_desktops_can_read_the_desktop_entries(self):
        for name in ("usr/share/applications", "etc/xdg/autostart"):
            run("desktop-file-validate",
                self.path(APPLICATION, f"{name}/com.veldane.wayfold.contextmenu.desktop"))

    def test_software_centres_can_read_the_description(self):
        run("appstreamcli", "validate-tree", "--no-net", "--pedantic",
            self.folder / APPLICATION)

    def test_the_manual_pages_are_well_formed(self):
        pages = [page for package in self.files
                 for page in (self.folder / package / "usr/share/man").rglob("*.gz")]
        self.assertEqual(len(pages), 3)
        for page in pages:
            plain = self.folder / page.stem
            plain.write_bytes(gzip.decompress(page.read_bytes()))
            run("mandoc", "-T", "lint", "-W", "warning", plain)

    def test_every_program_has_a_manual_page(self):
        for package in self.files:
            root = self.folder / package / "usr"
            for program in (root / "bin").glob("*"):
                self.assertTrue((root / f"share/man/man1/{program.name}.1.gz").exists(), program)

    def test_the_manual_page_of_the_client_knows_what_its_help_knows(self):
        page = (ROOT / "packaging/linux/contextmenu.1").read_text()
        usage = run(BUILD / "devkit/contextmenu", "--help")
        for option in set(re.findall(r"--([a-z]+)", usage)):
            self.assertIn(f".It Fl Fl {option}", page)
        for code in re.findall(r"(\d) [a-z]", usage[usage.index("Exit:"):]):
            self.assertIn(f".It {code}\n", page)
        for command in set(re.findall(r"\.\.\.\] ([a-z-]+)", usage)):
            self.assertIn(f".It Cm {command}", page)

    def test_the_change_log_is_of_this_version(self):
        version = self.field(APPLICATION, "Version")
        for package in self.files:
            log = self.path(package, f"usr/share/doc/{package}/changelog.gz")
            self.assertTrue(gzip.decompress(log.read_bytes()).decode().startswith(
                f"brisvale-context-menu ({version})"))


if __name__ == "__main__":
    unittest.main()

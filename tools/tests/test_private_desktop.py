"""What a command on a private desktop finds, and what is left afterwards."""

import os
import re
import signal
import subprocess
import tempfile
import time
import unittest
import uuid
from pathlib import Path

PROGRAM = str(Path(__file__).resolve().parents[1] / "private-desktop")
DEADLINE_SECONDS = 30


def run(*arguments, **environment):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True,
                          timeout=DEADLINE_SECONDS, env={**os.environ, **environment})


def shell(script, *options, **environment):
    return run(*options, "sh", "-c", script, **environment)


def new_mark():
    """A number of seconds to sleep that no other process has among its arguments. Processes are
    found by it: their numbers inside a desktop are other ones than outside."""
    return f"600.{uuid.uuid4().int % 10**18}"


def running(mark):
    """How many processes sleep for the mark. The shell that starts them names it too, but as a part
    of a longer argument."""
    found = 0
    for path in Path("/proc").glob("[0-9]*/cmdline"):
        try:
            found += mark.encode() in path.read_bytes().split(b"\0")
        except OSError:
            pass  # it has just ended
    return found


class WithoutDisplay(unittest.TestCase):
    def shell(self, script, **environment):
        return shell(script, "--no-display", **environment)

    def test_the_exit_code_is_the_commands(self):
        self.assertEqual(self.shell("exit 7").returncode, 7)
        self.assertEqual(self.shell("kill -KILL $$").returncode, 128 + signal.SIGKILL)
        self.assertEqual(run("--no-display", "no-such-command").returncode, 127)
        self.assertEqual(run("--no-display", "/").returncode, 126)
        self.assertEqual(run("--no-such-option").returncode, 125)

    def test_input_and_output_are_the_commands(self):
        result = subprocess.run([PROGRAM, "--no-display", "cat"], input=b"through\n",
                                capture_output=True, timeout=DEADLINE_SECONDS)
        self.assertEqual((result.stdout, result.stderr), (b"through\n", b""))

    def test_everything_private_lies_in_one_folder_that_is_gone_afterwards(self):
        variables = ["HOME", "TEMP", "TMP", "TMPDIR", "GNUSTEP_CONFIG_FILE", "XDG_RUNTIME_DIR",
                     "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"]
        script = "; ".join(f'echo "${name}"' for name in variables)
        paths = self.shell(f"{script}; mkdir $TEMP/closed; chmod 0 $TEMP/closed").stdout.split()
        self.assertEqual(len(paths), len(variables))
        folder = os.path.commonpath(paths)
        self.assertRegex(folder, r"^(/dev/shm|/tmp)/pd-\w+$")
        self.assertFalse(os.path.exists(folder))

    def test_a_socket_of_a_named_connection_has_a_path_that_fits(self):
        temporary = self.shell("echo $TEMP").stdout.strip()
        longest = f"{temporary}/GNUstepSecure4294967295/NSMessagePort/ports/4194304.99999999"
        self.assertLess(len(longest), 108)

    def test_the_callers_desktop_is_out_of_reach(self):
        names = ("DISPLAY", "XAUTHORITY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS",
                 "GTK_THEME", "LC_ALL")
        script = "env | grep -E '^(" + "|".join(names) + ")=' || true"
        self.assertEqual(self.shell(script, **{name: "x" for name in names}).stdout, "")

    def test_the_language_is_plain_unless_asked_for(self):
        self.assertEqual(self.shell("echo $LANG", LANG="fr_FR.UTF-8").stdout, "C.UTF-8\n")
        asked = self.shell("echo $LANG", PRIVATE_DESKTOP_LANG="fr_FR.UTF-8").stdout
        self.assertEqual(asked, "fr_FR.UTF-8\n")

    def test_user_defaults_are_its_own(self):
        written = self.shell("defaults write PrivateDesktopTest key inside;"
                             " defaults read PrivateDesktopTest key; find $HOME -name '*.plist'")
        self.assertIn("inside", written.stdout)
        self.assertIn("/GNUstep/Defaults/PrivateDesktopTest.plist", written.stdout)
        self.assertNotIn("inside", self.shell("defaults read PrivateDesktopTest key").stdout)
        outside = subprocess.run(["defaults", "read", "PrivateDesktopTest", "key"],
                                 capture_output=True, text=True, timeout=DEADLINE_SECONDS)
        self.assertNotIn("inside", outside.stdout)

    def test_a_desktop_within_a_desktop_has_its_own_defaults(self):
        script = f"""defaults write PrivateDesktopTest key outer
                     {PROGRAM} --no-display sh -c 'defaults read PrivateDesktopTest key;
                       grep -c "=$HOME/GNUstep/Defaults$" $GNUSTEP_CONFIG_FILE'"""
        result = self.shell(script)
        self.assertNotIn("outer", result.stdout)
        self.assertIn("1\n", result.stdout)

    def test_processes_of_other_desktops_are_not_seen(self):
        mark = new_mark()
        with subprocess.Popen(["sleep", mark]) as outside:
            self.assertNotIn(mark, self.shell("cat /proc/*/cmdline | tr '\\0' ' '").stdout)
            outside.kill()

    def test_daemons_and_forgotten_children_end_with_it(self):
        mark = new_mark()
        self.shell(f"setsid sh -c 'sleep {mark} &' ; sleep {mark} & "
                   f"until [ $(pgrep -fc '^sleep {mark}') = 2 ]; do :; done")
        self.assertEqual(running(mark), 0)

    def test_a_stopped_child_and_one_that_refuses_end_too(self):
        mark = new_mark()
        began = time.monotonic()
        self.shell(f"sleep {mark} & kill -STOP $!;"
                   f" sh -c 'trap \"\" TERM; while :; do sleep {mark}; done' &"
                   # The stopped one may not have become a sleep yet.
                   f" until pgrep -f '^sleep {mark}' > /dev/null; do :; done")
        self.assertEqual(running(mark), 0)
        self.assertLess(time.monotonic() - began, 10)

    def test_a_request_to_end_ends_everything(self):
        for number in (signal.SIGTERM, signal.SIGINT):
            with self.subTest(number):
                mark = new_mark()
                process = subprocess.Popen([PROGRAM, "--no-display", "sh", "-c",
                                            f"sleep {mark} & echo $HOME; wait"],
                                           stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                           text=True)
                with process.stdout:
                    home = process.stdout.readline().strip()
                    while not running(mark):
                        self.assertIsNone(process.poll())
                    process.send_signal(number)
                    self.assertEqual(process.wait(DEADLINE_SECONDS), 128 + number)
                self.assertEqual(running(mark), 0)
                self.assertFalse(os.path.exists(home))

    def test_the_command_dies_with_a_killed_desktop(self):
        process = subprocess.Popen([PROGRAM, "--no-display", "sh", "-c", "echo $HOME; exec cat"],
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        with process.stdin, process.stdout:
            folder = Path(process.stdout.readline().strip()).parent
            process.kill()
            process.wait(DEADLINE_SECONDS)
            # The end of cat's output: cat has gone although its input is still open.
            self.assertEqual(process.stdout.read(), "")
        # A later desktop removes the folder, which counts as abandoned after a minute.
        self.assertTrue(folder.exists())
        long_ago = time.time() - 3600
        os.utime(folder, (long_ago, long_ago))
        self.shell("true")
        self.assertFalse(folder.exists())

    def test_a_folder_in_use_is_not_taken_for_abandoned(self):
        script = f"""touch -d '1 hour ago' $HOME/..
                     {PROGRAM} --no-display true
                     test -e $GNUSTEP_CONFIG_FILE"""
        self.assertEqual(self.shell(script).returncode, 0)

    @unittest.skipUnless(os.getuid() == 0, "needs to be root to become somebody else")
    def test_an_ordinary_user_can_use_it(self):
        with tempfile.TemporaryDirectory() as folder:
            os.chmod(folder, 0o755)
            copy = Path(folder, "private-desktop")
            copy.write_bytes(Path(PROGRAM).read_bytes())
            copy.chmod(0o755)
            result = subprocess.run(
                ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", str(copy),
                 "--window-manager", "sh", "-c", "id -u; xprop -root _NET_SUPPORTING_WM_CHECK"],
                capture_output=True, text=True, cwd="/", timeout=DEADLINE_SECONDS)
        self.assertRegex(result.stdout, r"^65534\n.*window id #", result.stderr)


class WithDisplay(unittest.TestCase):
    def test_the_display_has_the_promised_size(self):
        self.assertRegex(shell("xdpyinfo").stdout, r"dimensions:\s+1280x800 pixels")

    def test_the_display_has_what_programs_draw_with_and_loads_no_renderer_for_3d(self):
        extensions = re.findall(r"^ {4}(\S+)$", shell("xdpyinfo").stdout, re.MULTILINE)
        for needed in ("RANDR", "RENDER", "SHAPE", "XTEST", "XKEYBOARD"):
            self.assertIn(needed, extensions)
        self.assertNotIn("GLX", extensions)

    def test_a_key_that_is_released_late_is_not_repeated(self):
        script = """xev > log & trap "kill $!" EXIT
                    until xdotool search --name "Event Tester" windowfocus --sync; do
                      sleep 0.01
                    done
                    xdotool keydown a sleep 1 keyup a
                    until grep -A 2 KeyRelease log | grep -q '(keysym 0x61'; do sleep 0.01; done
                    grep -A 2 KeyPress log | grep -c '(keysym 0x61'"""
        self.assertEqual(shell(f"cd $HOME; {script}").stdout.strip(), "1")

    def test_the_screen_is_managed_only_when_asked_for(self):
        script = "xprop -root _NET_SUPPORTING_WM_CHECK"
        self.assertNotIn("window id #", shell(script).stdout)
        self.assertIn("window id #", shell(script, "--window-manager").stdout)

    def test_desktops_at_the_same_time_have_different_displays(self):
        script = "xprop -root > /dev/null && echo $DISPLAY && read line"
        desktops = [subprocess.Popen([PROGRAM, "sh", "-c", script], text=True,
                                     stdin=subprocess.PIPE, stdout=subprocess.PIPE)
                    for _ in range(4)]
        displays = [desktop.stdout.readline().strip() for desktop in desktops]
        for desktop in desktops:
            desktop.communicate("\n", timeout=DEADLINE_SECONDS)
        self.assertEqual(len(set(displays)), 4, displays)
        for display in displays:
            self.assertTrue(re.fullmatch(r":\d+", display), displays)

    def test_the_display_is_gone_afterwards(self):
        # Another desktop may have a display of the same number by then.
        socket = "stat -c '%n %i %z' /tmp/.X11-unix/X"
        before = shell(f"{socket}${{DISPLAY#:}}").stdout
        after = subprocess.run(f"{socket}*", shell=True, text=True, stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, check=False).stdout
        self.assertIn("/X", before)
        self.assertNotIn(before, after)

    def test_a_display_that_does_not_come_up_is_told(self):
        with tempfile.TemporaryDirectory() as folder:
            server = Path(folder, "Xvfb")
            server.write_text("#!/bin/sh\necho no luck >&2\nexit 1\n")
            server.chmod(0o755)
            result = run("true", PATH=f"{folder}:{os.environ['PATH']}")
        self.assertEqual(result.returncode, 125)
        self.assertIn("no luck", result.stderr)

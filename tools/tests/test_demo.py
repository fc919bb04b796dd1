"""The demonstration finds the application's window, however late that opens."""

import subprocess
import unittest

from sample import TOOLS

PRIVATE_DESKTOP = TOOLS / "private-desktop"
# Like the demonstration, with any window in the place of the application's, and a shorter time-out.
SCRIPT = """
set -euo pipefail
die() { printf '%s\\n' "$1"; exit 1; }
source <(sed 's/^readonly start_seconds=.*/readonly start_seconds=SECONDS_TO_WAIT/' demo-tools.sh)
source demo-windows.sh
visible_windows() { xdotool search --onlyvisible --name '^Sample$' 2>/dev/null || true; }
find_sample() { local X=0 Y=0 WIDTH=0 HEIGHT=0; find_window; printf '%s\\n' "$WIDTH"; }
"""


class FindWindow(unittest.TestCase):
    def run_script(self, seconds, commands):
        script = SCRIPT.replace("SECONDS_TO_WAIT", str(seconds)) + commands
        return subprocess.run([PRIVATE_DESKTOP, "bash", "-c", script], cwd=TOOLS, text=True,
                              stdout=subprocess.PIPE, timeout=100)

    def test_without_a_window_it_ends(self):
        result = self.run_script(1, "find_sample")
        self.assertEqual((result.returncode, result.stdout), (1, "the application has no window\n"))

    def test_a_window_that_comes_up_meanwhile_is_found(self):
        result = self.run_script(60, """
searches=$HOME/searches
visible_windows() {
  echo >>"$searches"
  (($(wc -l <"$searches") < 3)) || xdotool search --onlyvisible --name '^Sample$' || true
}
xev -name Sample -geometry 321x200 >"$HOME/events" &
find_sample
""")
        self.assertEqual((result.returncode, result.stdout), (0, "321\n"))

    def test_of_several_windows_the_widest_is_found(self):
        result = self.run_script(60, """
for width in 200 400 300; do xev -name Sample -geometry "${width}x100" >"$HOME/$width" & done
three() { (($(visible_windows | wc -l) == 3)); }
until_true 60 three
find_sample
""")
        self.assertEqual((result.returncode, result.stdout), (0, "400\n"))

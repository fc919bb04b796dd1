# shellcheck shell=bash
# What tools/demo finds on the screen. To be sourced after demo-tools.sh.

# The application's windows and sheets that can be seen, as the window server numbers them.
visible_windows() { xdotool search --onlyvisible --classname ContextMenuApp 2>/dev/null || true; }
window_named() { xdotool search --onlyvisible --name "^$1\$" >/dev/null 2>&1; }
sees_windows() { (($(visible_windows | wc -l) == $1)); }

# Fails where there is no window, or where it closes meanwhile: without a number, xwininfo would
# wait for a click on one.
# shellcheck disable=SC2034 # the caller's variables
find_window_now() {
  local widest=0 found='' number geometry place
  for number in $(visible_windows); do
    eval "$(xdotool getwindowgeometry --shell "$number" 2>/dev/null || echo WIDTH=0)"
    ((WIDTH <= widest)) || { widest=$WIDTH; found=$number; }
  done
  [[ -n $found ]] || return 1
  geometry=$(xdotool getwindowgeometry --shell "$found" 2>/dev/null) || return 1
  place=$(xwininfo -id "$found" 2>/dev/null) || return 1
  eval "$geometry"
  # The positions of xdotool include the frame of the window manager twice.
  X=$(sed -n 's/.*Absolute upper-left X: *//p' <<<"$place")
  Y=$(sed -n 's/.*Absolute upper-left Y: *//p' <<<"$place")
}

# The window itself, and not a sheet, an alert or a list in front of it: it is the widest. Leaves its
# place in X, Y, WIDTH and HEIGHT. Between two windows there may be none.
find_window() {
  # shellcheck disable=SC2154 # of demo-tools.sh
  until_true "$start_seconds" find_window_now || die "the application has no window"
}

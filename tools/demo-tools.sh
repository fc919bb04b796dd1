# shellcheck shell=bash
# What ./run and tools/demo share: starting the programs and waiting for them. To be sourced from the
# project's folder, with `die` defined.

readonly agent_program=build/devkit/VeldaneKRVAgent.app/VeldaneKRVAgent
readonly application_program=build/ContextMenuApp.app/ContextMenuApp
readonly contextmenu=build/devkit/contextmenu
# For a program to start on a busy machine.
readonly start_seconds=60

# until_true SECONDS COMMAND...: repeats the command until it succeeds; fails at the time-out.
until_true() {
  local deadline=$((SECONDS + $1))
  shift
  until "$@"; do
    ((SECONDS < deadline)) || return 1
    sleep 0.1
  done
}

alive() { kill -0 "$1" 2>/dev/null; }

# Registered, or ended: both end the wait.
agent_decided() { grep -q 'registered as' "$agent_log" || ! alive "$agent"; }

# start_agent LOG [OPTION...]: leaves its process id in `agent`.
start_agent() {
  agent_log=$1
  shift
  : >"$agent_log"  # the shell may look into it before the agent has been started
  "$agent_program" "$@" >"$agent_log" 2>&1 &
  agent=$!
  until_true $start_seconds agent_decided || die "the agent does not come up; see $agent_log"
  alive "$agent" || die "$(tail -n 1 "$agent_log")"
}

# start_application LOG: leaves its process id in `application`.
start_application() {
  "$application_program" >"$1" 2>&1 &
  application=$!
  "$contextmenu" --wait $start_seconds status >/dev/null || die "the application does not come up; see $1"
  alive "$application" || die "the application ended; see $1"
}

# stop PROCESS...: ends processes that this script started, and waits until they have.
stop() {
  local process
  for process in "$@"; do kill "$process" 2>/dev/null || true; done
  for process in "$@"; do wait "$process" 2>/dev/null || true; done
}

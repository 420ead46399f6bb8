# shellcheck shell=bash
# What the scripts of this folder share. Sourced by them, never run.
#
# Messages go to stderr, so that stdout stays what the caller asked for; what is long goes to a file under build/logs and
# is shown only when the command failed.

clone=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd -P)
build=${WENDRILL_BUILD:-$clone/build}
logs=$build/logs
export LC_ALL=C.UTF-8

say() { printf '== %s\n' "$*" >&2; }

fail() {
  printf '%s: %s\n' "${0##*/}" "$*" >&2
  exit 1
}

# The help text of a script is the comment at its head.
print_help() { sed -n '2,/^$/ s/^# \{0,1\}//p' "$0"; }

wrong_usage() {
  printf '%s: %s\n\n' "${0##*/}" "$*" >&2
  print_help >&2
  exit 2
}

# run_ctest PRESET [ARGS...]: all tests of a build, as many at once as there are processors.
run_ctest() {
  local preset=$1
  shift
  ctest --test-dir "$build/$preset" --parallel "$(nproc)" --no-tests=error --output-on-failure --timeout 300 "$@" </dev/null
}

# logged NAME COMMAND...: the command's output goes to build/logs/NAME.log; when it fails, the end of it is shown.
logged() {
  local name=$1 log=$logs/$1.log status=0
  shift
  mkdir -p "$logs"
  "$@" </dev/null >"$log" 2>&1 || status=$?
  if ((status != 0)); then
    tail -n 40 "$log" >&2
    printf '%s: %s failed (status %d); all of its output is in %s\n' "${0##*/}" "$name" "$status" "$log" >&2
  fi
  return "$status"
}

# Everything that is made goes into the build folder: WENDRILL_BUILD, or build/ of the clone.
require_build_folder() {
  if ! mkdir -p "$build" 2>/dev/null || [[ ! -w $build ]]; then
    fail "nothing can be written to $build: name a folder of your own in WENDRILL_BUILD"
  fi
  build=$(cd -- "$build" && pwd -P)
  logs=$build/logs
}

# when_slow MESSAGE COMMAND...: says the message when the command takes longer than a second.
when_slow() {
  local message=$1 announcer status=0
  shift
  { sleep 1 >/dev/null 2>&1 && say "$message"; } &
  announcer=$!
  "$@" || status=$?
  kill "$announcer" 2>/dev/null || true
  wait "$announcer" 2>/dev/null || true
  return "$status"
}

# Again when the presets have changed since.
configure_preset() {
  if [[ $build/$1/build.ninja -nt $clone/CMakePresets.json ]]; then return; fi
  say "configuring ${build##*/}/$1"
  cd "$clone" && logged "configure-$1" cmake --preset "$1" -B "$build/$1"
}

# build_preset PRESET [TARGET...]: configures the preset where that was not done yet and builds what is out of date. Two
# scripts that build the same preset at once take turns: the lock is held until the subshell ends, well or not.
build_preset() (
  preset=$1
  shift
  require_build_folder
  exec 9>"$build/$preset.lock"
  flock --nonblock 9 || {
    say "waiting for another build of ${build##*/}/$preset"
    flock 9
  }
  status=0
  configure_preset "$preset" &&
    when_slow "building ${build##*/}/$preset" logged "build-$preset" ninja -C "$build/$preset" -j "$(nproc)" "$@" || status=$?
  flock -u 9 # a child that still has the file open would keep the lock
  exit "$status"
)

# What a script needs to run: the three DLLs and their host.
build_for_scripts() {
  ensure_packages win32
  build_preset win32 Wendrill23 QuilletSimulator QuilletRecorder script_host
}

# wine_outlives SECONDS: script/wine must not end a program before its own time limit does.
wine_outlives() {
  local seconds=${1%%.*}
  if [[ $seconds =~ ^[0-9]{1,5}$ ]]; then export WENDRILL_TIME_LIMIT=$((10#$seconds + 60)); fi
}

# windows_path FILE: the name under which a program that runs under Wine finds a file of this machine.
windows_path() {
  local path
  path=$(realpath -m -s -- "$1")
  printf 'Z:%s\n' "${path//\//\\}"
}

# shellcheck source=script/packages.sh
source "$clone/script/packages.sh"

# shellcheck shell=bash
# Which packages of Debian 12 or 13 a preset needs, and how they are installed. Sourced by lib.sh.

# The package that holds the fuzzer's run time is named after the release of clang that `clang` brings. Before clang is
# installed and without an index of packages nobody knows it: nothing then.
clang_runtime() {
  apt-cache depends --important clang 2>/dev/null | sed -n 's/^ *Depends: clang-\([0-9]*\)$/libclang-rt-\1-dev/p'
}

# Node.js from elsewhere has npm in it, and Debian's package does not go with that.
npm_package() { command -v npm >/dev/null || echo npm; }

packages_of() {
  case $1 in
    win32) echo cmake ninja-build python3 g++-mingw-w64-i686-posix mingw-w64-tools wine wine32:i386 googletest libtomlplusplus-dev libcli11-dev nlohmann-json3-dev rapidjson-dev python3-jsonschema ;;
    sanitize) echo cmake ninja-build python3 g++ libgtest-dev libgmock-dev libtomlplusplus-dev libcli11-dev nlohmann-json3-dev rapidjson-dev python3-jsonschema ;;
    native | bench) echo cmake ninja-build python3 g++ libgtest-dev libgmock-dev libtomlplusplus-dev libbenchmark-dev python3-textfsm libcli11-dev nlohmann-json3-dev rapidjson-dev python3-jsonschema ;;
    fuzz) echo cmake ninja-build python3 clang "$(clang_runtime)" libgtest-dev libgmock-dev libtomlplusplus-dev libcli11-dev nlohmann-json3-dev rapidjson-dev ;;
    wendrill) echo cmake ninja-build python3 g++ libtomlplusplus-dev libcli11-dev nlohmann-json3-dev rapidjson-dev ;;
    scale) echo parallel npm nodejs ;;
    hosts64) echo wine64 g++-mingw-w64-x86-64-posix ;;
    package) echo nsis zip ;;
    tools) echo clang-format clang-tidy shellcheck ;;
    docs) echo python3 python3-markdown python3-pygments libjs-lunr ;;
    pages) echo python3 chromium ;;
    transcript) echo chromium nodejs "$(npm_package)" ;;
    languages) echo gcc fp-compiler fp-units-rtl fpc-source mono-mcs "$(npm_package)" ;;
    release) echo debootstrap ;;
    *) wrong_usage "there is no preset called $1" ;;
  esac
}

is_installed() { [[ $(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }

# missing_packages PRESET...: those that the presets need and that are not there.
missing_packages() {
  local preset package list missing=()
  for preset in "$@"; do
    list=$(packages_of "$preset") || exit
    for package in $list; do
      [[ " ${missing[*]} " == *" $package "* ]] || is_installed "$package" || missing+=("$package")
    done
  done
  echo "${missing[*]}"
}

# ensure_packages PRESET...: installs what the presets need and is not there; silent when all is. The second round is for
# a package that could not be named before the first.
ensure_packages() {
  local list missing
  command -v dpkg-query >/dev/null || { ensure_commands "$@" && return; }
  for _ in 1 2; do
    list=$(missing_packages "$@") || exit
    read -ra missing <<<"$list"
    if ((${#missing[@]} == 0)); then return; fi
    ((EUID == 0)) || ask_for_root "$*" "${missing[@]}"
    install_packages "${missing[@]}"
  done
}

# Not Debian: what is there under the usual names is used, and what is missing is said.
ensure_commands() {
  local command missing=()
  for command in cmake ninja python3; do
    command -v "$command" >/dev/null || missing+=("$command")
  done
  if [[ " $* " == *' win32 '* ]]; then
    for command in i686-w64-mingw32-g++-posix widl wine wineserver; do
      command -v "$command" >/dev/null || missing+=("$command")
    done
  fi
  if ((${#missing[@]} == 0)); then return; fi
  fail "these commands are missing: ${missing[*]}
This is not Debian, so nothing is installed here. On Debian they come from these packages:
  $(for preset in "$@"; do packages_of "$preset"; done | tr ' ' '\n' | sort -u | tr '\n' ' ')"
}

ask_for_root() {
  local presets=$1 architecture=
  shift
  if [[ " $* " == *:i386* ]]; then architecture='dpkg --add-architecture i386 && '; fi
  fail "these packages are missing: $*
Only root can install them. Type

  sudo '${clone:?}/script/bootstrap' --packages-only $presets

or install them by hand, as root:

  ${architecture}apt-get update && apt-get install $*

and then call ${0##*/} again."
}

# The index of one suite for the second architecture may be out of reach; beside an older index of the same suite for the
# first one, nothing could be resolved any more. With an index of our own, fetched now, such a suite drops out whole.
install_packages() {
  local lists apt log
  say "installing $*"
  lists=$(mktemp -d)
  chmod 755 "$lists" # apt reads it as another user
  log=$lists/log
  apt=(apt-get -o "Dir::State::lists=$lists" -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache= -o Acquire::Retries=3)
  export DEBIAN_FRONTEND=noninteractive
  if [[ " $* " == *:i386* ]]; then dpkg --add-architecture i386; fi
  "${apt[@]}" update </dev/null >"$log" 2>&1 || say 'not every package index could be read; going on with the others'
  apt+=(install --yes --no-install-recommends)
  if ! "${apt[@]}" "$@" </dev/null >>"$log" 2>&1; then
    say 'trying again with the versions of the main suite'
    printf 'Package: *\nPin: release l=Debian\nPin-Priority: 1001\n' >"$lists/preferences"
    if ! "${apt[@]}" -o "Dir::Etc::preferences=$lists/preferences" --allow-downgrades "$@" </dev/null >>"$log" 2>&1; then
      tail -n 40 "$log" >&2
      fail "the packages could not be installed; all that apt-get said is in $log"
    fi
  fi
  rm -rf -- "$lists"
}

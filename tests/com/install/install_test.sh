#!/usr/bin/env bash
# Installs a build into a folder of its own and uses it there.
#
#   install_test.sh CMAKE SOURCES BUILD EMULATOR...

set -euo pipefail
export LC_ALL=C.UTF-8
cmake=$1 sources=$2 build=$3
emulator=("${@:4}")

prefix=$(mktemp -d)
trap 'rm -rf -- "$prefix"' EXIT
"$cmake" --install "$build" --prefix "$prefix/all" >/dev/null
"$cmake" --install "$build" --prefix "$prefix/desktop" --component desktop >/dev/null

failed=no
complain() {
  echo "$*"
  failed=yes
}

# expect_files FOLDER: the names on standard input, and no other file, are in the folder.
expect_files() { diff -u --label "expected in $1" --label "installed" - <(cd -- "$1" && find . -type f | sort) || failed=yes; }

# The files of the sources that are installed under the name that they have there.
named_alike() { (cd -- "$sources" && find ./samples -type f && find ./docs -name '*.md' && echo ./README.md && echo ./CHANGELOG.md); }

desktop() {
  printf '%s\n' ./bin/QuilletRecorder.dll ./bin/Wendrill23.dll ./bin/doctor.exe ./bin/script_host.exe ./include/wendrill23.h ./include/wendrill23_i.c \
    ./regfree/README.md ./regfree/application.manifest
  named_alike
}
simulator() {
  echo ./bin/QuilletSimulator.dll
  (cd -- "$sources/simulator" && find ./scenarios -name '*.toml')
}
desktop | sort | expect_files "$prefix/desktop"
{ desktop && simulator; } | sort | expect_files "$prefix/all"

if grep -q '@WENDRILL' "$prefix/all/samples/application.manifest"; then complain 'the manifest lacks the library'\''s version'; fi
grep -q '@PROGRAM@.*@VERSION@' "$prefix/all/samples/application.manifest" || complain 'the manifest lacks a placeholder'

# The sample loads its scenario from the installed folder.
unset QUILLET_SCENARIO
sample=$prefix/all/samples/vbscript/read_pnr.vbs
printed=$("${emulator[@]}" "$prefix/all/bin/script_host.exe" "Z:${sample//\//\\}" </dev/null) || complain "the sample failed"
grep -qF 'RCH001' <<<"$printed" || complain "the sample printed: $printed"
[[ $failed == no ]]

#!/usr/bin/env bash
# The samples in languages whose tools no other test needs: Pascal runs beside the simulator under Wine, C# is compiled,
# VBA and PowerShell are parsed. Each tool must also reject a source with a fault in it.
#
#   languages_test.sh CLONE FOLDER
#
#   FOLDER   where the tools are built that are not in a package; they stay for the next call
#
# Needs the win32 build of the library, the simulator and the C++ samples. Prints "passed NAME" or "FAILED NAME" for each
# test; the exit status is 0 when none failed and some ran.

set -euo pipefail

clone=$1
folder=$2
win32=$clone/build/win32
samples=$clone/samples
jobs=$clone/tests/com/samples/jobs
failed=0
ran=0
mkdir -p -- "$folder"

# run_test NAME COMMAND...: what the command says is shown when it fails. Inside a condition `set -e` would not hold.
run_test() {
  local name=$1 said status
  shift
  ran=$((ran + 1))
  set +e
  said=$(set -e && "$@" 2>&1)
  status=$?
  set -e
  if ((status == 0)); then
    echo "passed $name"
  else
    printf 'FAILED %s\n%s\n' "$name" "$said"
    failed=$((failed + 1))
  fi
}

rejects() { ! "$@"; }

# ---- Pascal. Debian has the compiler for its own processors alone, and its sources: a compiler for 32-bit Windows is
# made of them, and the units that the samples use are compiled with them.

make_pascal_compiler() {
  local version sources messages work=$folder/pascal
  version=$(fpc -iV)
  sources=/usr/share/fpcsrc/$version
  messages=$(compgen -G "/usr/lib/*/fpc/$version/msg/errore.msg")
  rm -rf -- "$work"
  mkdir -p "$work/units" "$work/compiler"
  cp -r -- "$sources/compiler" "$work/sources"
  cd "$work/sources"
  fpc -v0 -FU"$work/compiler" -FE"$work/compiler" utils/msg2inc.pp
  "$work/compiler/msg2inc" "$messages" msg msg
  fpc -v0 -O2 -Sg -di386 -Fux86 -Fii386 -Fui386 -Fusystems -Fu. -Fi. -Fix86 -FU"$work/compiler" -FE"$work/compiler" \
    -o"$work/fpc_win32" pp.pas
  cd "$clone"
  compile_pascal -Us -Sg "$sources/rtl/win32/system.pp"
  for unit in inc/fpintres inc/uuchar objpas/objpas win32/sysinitpas win32/buildrtl; do
    compile_pascal "$sources/rtl/$unit.pp"
  done
}

compile_pascal() {
  local sources part paths=()
  sources=/usr/share/fpcsrc/$(fpc -iV)
  for part in rtl/{win32,inc,i386,win,win/wininc,objpas,objpas/sysutils,objpas/classes} \
    packages/{rtl-objpas/src/inc,rtl-objpas/src/win,winunits-base/src,fcl-registry/src,fcl-base/src}; do
    paths+=("-Fu$sources/$part" "-Fi$sources/$part")
  done
  "$folder/pascal/fpc_win32" -n -v0e -Twin32 -FU"$folder/pascal/units" "${paths[@]}" "$@"
}

ensure_pascal_compiler() {
  local version
  version=$(fpc -iV)
  if [[ $(cat -- "$folder/pascal/ready" 2>/dev/null) == "$version" ]]; then return; fi
  make_pascal_compiler && echo "$version" >"$folder/pascal/ready"
}

# A program is beside copies of the DLLs and finds them by the manifest beside it: it has none in it.
pascal_program() {
  local name=$1
  mkdir -p "$folder/bin"
  cp -- "$win32"/bin/{Wendrill23,QuilletSimulator}.dll "$folder/bin"
  cp -- "$win32/tests/com/samples/sample_$name.manifest" "$folder/bin/$name.exe.manifest"
  compile_pascal -Fu"$samples/pascal" -o"$folder/bin/$name.exe" "$samples/pascal/$name.pas"
}

pascal_prints() {
  local expectation=$1 name=$2
  if [[ -e ${expectation%.txt}.toml ]]; then
    export QUILLET_SCENARIO
    QUILLET_SCENARIO=$(basename -- "${expectation%.txt}.toml")
  fi
  WENDRILL_SHARED=1 "$clone/tests/com/run_script.sh" "$expectation" "$folder/bin/$name.exe" "$clone/script/wine"
}

test_pascal() {
  local source name expectation
  run_test 'pascal: a compiler for 32-bit Windows' ensure_pascal_compiler
  printf 'program faulty;\nbegin\n  WriteLn(;\nend.\n' >"$folder/faulty.pas"
  run_test 'pascal: a fault is found' rejects compile_pascal -o"$folder/faulty.exe" "$folder/faulty.pas"
  for source in "$samples"/pascal/*.pas; do
    name=$(basename -- "$source" .pas)
    if [[ ! -e $jobs/$name.txt ]]; then continue; fi # a unit of theirs
    run_test "pascal/$name.pas" pascal_program "$name"
    for expectation in "$jobs/$name".txt "$jobs/$name".*.txt; do
      run_test "pascal/$(basename -- "$expectation" .txt) prints what it prints in every language" \
        pascal_prints "$expectation" "$name"
    done
  done
}

# ---- C#

compile_csharp() { mcs -platform:x86 -warn:4 -warnaserror -r:Microsoft.CSharp -out:"$folder/csharp.exe" "$1"; }

test_csharp() {
  local source
  echo 'class Faulty { static int Main() { return "text"; } }' >"$folder/faulty.cs"
  run_test 'csharp: a fault is found' rejects compile_csharp "$folder/faulty.cs"
  for source in "$samples"/csharp/*.cs; do run_test "csharp/${source##*/}" compile_csharp "$source"; done
}

# ---- VBA and PowerShell: grammars in C from npm, compiled with their run time.

make_parser() {
  local here=$clone/tests/languages modules=$folder/node_modules runtime object
  if [[ $folder/parse -nt $here/parse.c && $folder/parse -nt $here/package-lock.json ]]; then return; fi
  cp -- "$here"/{package.json,package-lock.json,.npmrc} "$folder"
  (cd "$folder" && npm ci --no-audit --no-fund)
  runtime=$modules/tree-sitter/vendor/tree-sitter/lib
  gcc -O1 -c -I"$runtime/include" -I"$runtime/src" "$runtime/src/lib.c" -o "$folder/runtime.o"
  for object in tree-sitter-powershell/src/{parser,scanner} tree-sitter-vba/vba/src/parser; do
    gcc -O0 -c -I"$modules/${object%/*}" "$modules/$object.c" -o "$folder/${object//\//-}.o"
  done
  gcc -Wall -Wextra -Werror -I"$runtime/include" "$here/parse.c" "$folder"/{runtime,tree-sitter-*}.o -o "$folder/parse"
}

test_grammars() {
  local source
  run_test 'vba and powershell: a parser' make_parser
  printf 'Sub Faulty()\n  total = = 3\nEnd Sub\n' >"$folder/faulty.bas"
  run_test 'vba: a fault is found' rejects "$folder/parse" vba "$folder/faulty.bas"
  for source in "$samples"/vba/*.bas; do run_test "vba/${source##*/}" "$folder/parse" vba "$source"; done
  # shellcheck disable=SC2016 # the script's own variable
  echo 'if ($total -eq ) { 3 }' >"$folder/faulty.ps1"
  run_test 'powershell: a fault is found' rejects "$folder/parse" powershell "$folder/faulty.ps1"
  for source in "$samples"/powershell/*.ps1; do
    run_test "powershell/${source##*/}" "$folder/parse" powershell "$source"
  done
}

test_csharp
test_grammars
test_pascal
echo "$ran tests, $failed failed"
((failed == 0 && ran > 0))

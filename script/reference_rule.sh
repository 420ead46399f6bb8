#!/usr/bin/env bash
# Compares docs/reference.md with the sources; run from the top folder. Prints what differs; the exit status is 0 when
# nothing does.
#
# Both sides are written as lists with one item per line: in_sources_LIST and in_reference_LIST.

# shellcheck disable=SC2317 # the lists are called by their names

set -euo pipefail

# CLASS.MEMBER, with its parameters where it is a method.
in_sources_members() { python3 cmake/idl/generate.py reference idl/wendrill23.idl; }
in_reference_members() {
  awk -F '`' '
    /^##/ { class = /^## (C[A-Za-z]+|IGet[A-Z]*)$/ ? substr($0, 4) : "" }
    class != "" && /^\| `/ {
      gsub(/[][]/, "", $2) # around parameters that may be left out
      print class "." $2
    }' docs/reference.md
}

in_sources_key_codes() { sed -nE 's/^  (kb[A-Za-z0-9]+) = ([0-9]+),?$/\1 \2/p' idl/wendrill23.idl; }
# shellcheck disable=SC2016 # the backticks are the document's
in_reference_key_codes() { sed -nE 's/^\| `(kb[A-Za-z0-9]+)` \| ([0-9]+) \|.*/\1 \2/p' docs/reference.md; }

in_sources_bag_keys() { git grep -ohE 'u"[a-z]{3}Key[A-Z][^"]*"' -- src | sed -E 's/^u"(.*)"$/\1/'; }
in_reference_bag_keys() { grep -oE '\b[a-z]{3}Key[A-Z][A-Za-z]*(\(\))?' docs/reference.md; }

# MEMBER.KEY or KIND.KEY: what each member of IGet and each kind of Elements writes. The records that the tests expect
# show all of it; only the search for lines writes no record.
in_sources_records() {
  awk '
    /^\[.* -?[0-9]+\]$/ { name = substr($0, 2); sub(/ -?[0-9]+\]$/, "", name) }
    /^[a-z]+Key/ { print name "." $1 }' tests/com/records/*.records
}
in_reference_records() {
  awk -F '`' '
    /^## / { ofRecords = /^## IGet/ }
    /^##/ { names = 0 }
    /^### `/ && ofRecords { for (i = 2; i <= NF; i += 2) name[++names] = $i }
    /^\| `[a-z]+Key/ { for (i = 1; i <= names; ++i) print name[i] "." $2 }' docs/reference.md
}

# The one row of the message table that names a range contains no single number.
in_sources_error_numbers() {
  git grep -h '[0-9]' -- 'src/*.cpp' 'src/*.h' | sed -E 's,//.*,,; s/OwnError\{[0-9]+, [0-9]+,//' | grep -owE '2[0-9]{3}'
  sed -nE '/^enum class RunTimeError/,/^};/ s/^ .* = ([0-9]+),.*/\1/p' src/common/error.h
  echo "$((0x80040000 - 0x100000000 + $(sed -nE 's/.*kObjectErrorBase \+ ([0-9]+);/\1/p' src/session/encode_utils.cpp)))"
}
in_reference_error_numbers() {
  sed -nE '/^## Errors/,/^## Key codes/ s/^\| (-?[0-9]+) \|.*/\1/p' docs/reference.md
}

in_sources_messages() { grep -oE '"[^"]+\."' src/common/error.cpp; }
in_reference_messages() { sed -nE 's/^\| ("[^"]+\.") \|.*/\1/p' docs/reference.md; }

# COUNT, first line, how the prompt ends the scan, count after it. The scanners of src/scan say so in their own words:
# a line that is passed over at first, the test for the prompt and, where it abandons the scan, the result 0.
in_sources_scans() {
  local file
  for file in src/scan/*.cpp; do
    if ! grep -q '^std::int16_t Scan(' "$file" || ! grep -q kPrompt "$file"; then
      continue # no scanner, or one of the terminal's list
    fi
    awk '
      /^    \.count = CountOf::/ { count = $NF; gsub(/^CountOf::|,$/, "", count) }
      /^  lines\.Next\(\);/ { first = "line 2" }
      /Rows rows\(/ { first = "row 2" }
      /kFirstLine = / { first = "line " $NF; sub(/;/, "", first) }
      /NumberedLines lines\(display\)|RereadLines lines\(/ && !first { first = "line 1" }
      /== kPrompt/ { prompt = "is it" }
      /StartsWith\((line|row), kPrompt\)/ { prompt = "begins with it" }
      /Contains\(line, kPrompt\)|prompt_\.IsIn/ { prompt = "holds it" }
      /LineMeaning::Abandoned/ { after = 0 }
      END { print count "Count|" first "|" prompt "|" (after == "" ? "kept" : after) }' "$file"
  done
}
# shellcheck disable=SC2016 # the backticks are the document's
in_reference_scans() {
  sed -nE '/^### Scans of the display/,/^### Three/ s/^\| `([A-Za-z]+)` \| [^|]* \| ([^|]*) \| ([a-z]+ (with )?it)[^|]* \| ([^|]*) \|.*/\1|\2|\3|\5/p' \
    docs/reference.md
}

# Whatever else the tables speak of.
in_sources_mentions() {
  grep -oE '[A-Za-z_]+' idl/wendrill23.idl
  in_sources_records | sed 's/\..*//'
  in_sources_error_numbers
}
# shellcheck disable=SC2016 # the backticks are the document's
in_reference_mentions() {
  sed '/^## Key codes/,$d' docs/reference.md | grep '^|' | grep -oE '`[A-Z][A-Za-z_]*`|\b2[0-9]{3}\b' | tr -d '`'
}

# A list that finds nothing has lost its place in the sources: that is no agreement.
nothing_is_missing() {
  local sources missing
  sources=$("in_sources_$1" | sort -u)
  missing=$(comm -23 <(echo "$sources") <("in_reference_$1" | sort -u))
  if [[ -z $sources ]]; then echo "${1//_/ }: none found in the sources"; fi
  if [[ -n $missing ]]; then printf '%s that docs/reference.md lacks:\n%s\n' "${1//_/ }" "$missing"; fi
  [[ -n $sources && -z $missing ]]
}

nothing_is_unknown() {
  local unknown
  unknown=$(comm -13 <("in_sources_$1" | sort -u) <("in_reference_$1" | sort -u))
  if [[ -n $unknown ]]; then printf '%s that only docs/reference.md has:\n%s\n' "${1//_/ }" "$unknown"; fi
  [[ -z $unknown ]]
}

differs=0
for list in members key_codes bag_keys records error_numbers messages scans; do
  nothing_is_missing "$list" || differs=1
  nothing_is_unknown "$list" || differs=1
done
nothing_is_unknown mentions || differs=1
exit "$differs"

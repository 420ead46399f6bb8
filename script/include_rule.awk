# Which module may include which, and which folders may include Windows headers. docs/architecture.md explains why.
#
# Each module may include itself and the modules listed for it; a module is a folder under src/, simulator/ or doctor/. The automation
# modules, the tests, the benchmarks and the fuzz targets may include any module.

BEGIN {
  may["src/common"] = ""
  may["src/toolkit"] = "common"
  may["src/session"] = may["src/pnr"] = "common toolkit"
  may["src/batch"] = may["src/scan"] = "common toolkit session pnr"
  may["src/com"] = "common toolkit session pnr batch scan"
  may["simulator/derive"] = "common"
  may["simulator/redaction"] = "common derive"
  may["simulator/trace"] = "common redaction"
  may["simulator/transcript"] = ""
  may["simulator/core"] = "common toolkit derive trace"
  may["simulator/schema"] = "common core trace"
  may["simulator/recording"] = "common toolkit core derive redaction"
  may["simulator/com"] = "common toolkit com core derive trace redaction recording transcript"
  may["doctor/core"] = ""

  # The headers beside the standard library's, which have no ending.
  third_party["simulator/core", "toml++/toml.h"]
  third_party["simulator/transcript", "nlohmann/json.hpp"]
  third_party["simulator/schema", "nlohmann/json.hpp"]
  third_party["simulator/trace", "nlohmann/json.hpp"]
  third_party["doctor/core", "nlohmann/json.hpp"]

  windows = "^(windows|win[a-z]+|wtypes|ole[a-z0-9]*|oaidl|oc?idl|objbase|objidl|unknwn|combaseapi|com(def|util)|activ[a-z]+|" \
    "dispex|ctxtcall|initguid|tlhelp32|psapi|shlwapi)\\.h$|^wrl/"
}

function wrong(why) {
  print FILENAME ":" FNR ": " why ": " $0
  failed = 1
}

function has_word(list, word) { return index(" " list " ", " " word " ") > 0 }

FNR == 1 {
  split(FILENAME, part, "/")
  room = part[1] "/" part[2]
  knows_windows = FILENAME ~ /^((src|simulator|tests|bench)\/com|tests\/hosts64|doctor\/windows)\// || FILENAME ~ /^samples\//
}

/^[ \t]*#[ \t]*include[ \t]*"/ {
  split($0, quoted, "\"")
  path = quoted[2]
  if (path ~ /\.\./) {
    wrong("a path that climbs")
    next
  }
  if (path !~ /\// || !(room in may)) next
  split(path, target, "/")
  if (target[1] != part[2] && !has_word(may[room], target[1])) wrong(room " may not include this module")
}

/^[ \t]*#[ \t]*include[ \t]*</ && !knows_windows {
  match($0, /<[^>]*>/)
  header = substr($0, RSTART + 1, RLENGTH - 2)
  if (tolower(header) ~ windows) wrong("this folder may not include Windows headers")
  else if (room in may && header !~ /^[a-z_]+$/ && !((room, header) in third_party))
    wrong("a module of the core includes the standard library only")
}

END { exit failed }

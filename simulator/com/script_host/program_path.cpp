#include "program_path.h"

#include "com/server/module_path.h"

namespace wendrill::script_host {

std::filesystem::path ProgramPath() {
  return com::PathOfModule(nullptr);
}

}  // namespace wendrill::script_host

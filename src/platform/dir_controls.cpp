#include "platform/dir_controls.h"

namespace platform {

bool DriveBox::set_drive(std::string_view /*drive*/) { return false; }

bool DirBox::set_path(std::string_view /*path*/) { return false; }

}  // namespace platform

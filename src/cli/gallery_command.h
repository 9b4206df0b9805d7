// The command `gallery`: pictures of all that the chart control paints, and a page that shows them.
#pragma once

#include <string>

#include "cli/command_table.h"

namespace tradebill {

[[nodiscard]] CommandRun DeclareGallery(CLI::App& app);

/// Paints into `folder` (UTF-8), which is made if it isn't there, and tells on stdout where the page is. Throws
/// std::runtime_error for a place that can't be written. Returns the exit code.
int RunGalleryCommand(const std::string& folder);

}  // namespace tradebill

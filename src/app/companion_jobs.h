// The jobs of a companion backup tool, offered as folder pairs so that they can be compared at
// once.
#pragma once

#include <string>

#include "platform/files.h"
#include "platform/forms.h"

namespace app {

// Adds the pairs of the job file Q7DB.qdb in `folder` to the two boxes, those they list already
// left out. Each line is a job of comma-separated fields: its source folder, its destination, and
// as fields 12 and 22 its name and its kind. A line is skipped when it has fewer than 23 fields,
// names no folder, holds a NUL or is longer than 64 KB. Nothing happens when `folder` is empty
// and when the file is missing or cannot be read.
void ImportCompanionJobs(platform::FileSystem& files, const std::string& folder,
                         platform::ComboBox& combo1, platform::ComboBox& combo2);

}  // namespace app

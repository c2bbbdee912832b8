// The drawings of this program.
#pragma once

#include <string_view>

#include "platform/win32/vector_art.h"

namespace platform::win32 {

// What an Image shows by its glyph's name; empty for a name that nothing is drawn for.
Drawing GlyphDrawing(std::string_view name);

// The program's icon: what is in two folders goes both ways.
Drawing ProgramIcon();

}  // namespace platform::win32

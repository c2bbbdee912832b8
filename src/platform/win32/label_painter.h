// Draws the controls that have no window of their own: labels and images.
#pragma once

#include <string>

#include <windows.h>

#include "platform/forms.h"
#include "platform/win32/fonts.h"

namespace platform::win32 {

// All of a windowless control that its picture on the screen depends on.
struct Look {
    RECT Area{};  // in pixels of the container's client area
    bool Visible = false;
    bool Enabled = true;
    bool Bold = false;
    bool MiddleEllipsis = false;
    bool Wrap = false;
    Alignment Align = Alignment::Left;
    Color Back = 0;
    Color Fore = 0;
    std::string Text;  // of an image: its glyph's name

    bool operator==(const Look& other) const;
};

Look LookOf(const Control& control, const RECT& area);

// `ground` is the container's colour: a label in another colour is a cell of its own, and its
// text keeps off the cell's edges.
void PaintLabel(HDC canvas, const Look& look, Color ground, const Fonts& fonts);
void PaintImage(HDC canvas, const Look& look, Color ground);

}  // namespace platform::win32

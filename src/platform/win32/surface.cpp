#include "platform/win32/surface.h"

#include <algorithm>
#include <utility>

#include <uxtheme.h>

#include "platform/win32/colors.h"
#include "platform/win32/native_control.h"

namespace platform::win32 {

const MessageEntry<Surface> Surface::kHandlers[] = {
    {WM_PAINT, &Surface::OnPaint},
    {WM_ERASEBKGND, &Surface::OnEraseBackground},
    {WM_PRINTCLIENT, &Surface::OnPrintClient},
    {WM_MOUSEMOVE, &Surface::OnMouseMove},
    {WM_LBUTTONDOWN, &Surface::OnButtonDown},
    {WM_RBUTTONDOWN, &Surface::OnButtonDown},
    {WM_LBUTTONUP, &Surface::OnButtonUp},
    {WM_RBUTTONUP, &Surface::OnButtonUp},
    {WM_CAPTURECHANGED, &Surface::OnCaptureChanged},
    {WM_COMMAND, &Surface::OnCommand},
    {WM_VSCROLL, &Surface::OnScroll},
    {WM_CTLCOLOREDIT, &Surface::OnControlColor},
    {WM_CTLCOLORSTATIC, &Surface::OnControlColor},
    {WM_CTLCOLORLISTBOX, &Surface::OnControlColor},
    {WM_CTLCOLORBTN, &Surface::OnControlColor},
};

Surface::Surface(HWND window, FormContext& context, Ground ground)
    : window_(window), context_(context), ground_(std::move(ground)) {}

Result Surface::Handle(const WindowMessage& message) {
    return Dispatch(*this, kHandlers, message);
}

void Surface::Add(Control& control) {
    pieces_.push_back({&control, control.ZOrder(), {}});
}

void Surface::Sort() {
    std::stable_sort(pieces_.begin(), pieces_.end(),
                     [](const Piece& a, const Piece& b) { return a.ZOrder < b.ZOrder; });
}

void Surface::Refresh(const Control& control) {
    const auto piece = std::find_if(pieces_.begin(), pieces_.end(),
                                    [&](const Piece& each) { return each.Owner == &control; });
    if (piece == pieces_.end()) return;
    Look look = LookOf(control, context_.Scaling.Pixels(control.Place()));
    const bool raised = piece->ZOrder != control.ZOrder();
    if (look == piece->Shown && !raised) return;
    if (piece->Shown.Visible) ::InvalidateRect(window_, &piece->Shown.Area, FALSE);
    if (look.Visible) ::InvalidateRect(window_, &look.Area, FALSE);
    piece->Shown = std::move(look);
    piece->ZOrder = control.ZOrder();
    if (raised) Sort();
}

void Surface::RefreshAll() {
    for (Piece& piece : pieces_)
        piece.Shown = LookOf(*piece.Owner, context_.Scaling.Pixels(piece.Owner->Place()));
    ::InvalidateRect(window_, nullptr, FALSE);
}

// Painting. `screen` knows which part of the window needs it.

void Surface::Paint(HDC canvas, const RECT& area, HDC screen) const {
    const Color ground = ground_.BackColor();
    Fill(canvas, area, ground);
    for (const Piece& piece : pieces_) {
        const Look& look = piece.Shown;
        if (!look.Visible || !::RectVisible(screen, &look.Area)) continue;
        if (piece.Owner->Kind() == ControlKind::Image)
            PaintImage(canvas, look, ground);
        else
            PaintLabel(canvas, look, ground, *context_.Lettering);
    }
}

Result Surface::OnPaint(const WindowMessage&) {
    PAINTSTRUCT paint;
    const HDC screen = ::BeginPaint(window_, &paint);
    HDC canvas = nullptr;
    const HPAINTBUFFER buffer =
        ::BeginBufferedPaint(screen, &paint.rcPaint, BPBF_COMPATIBLEBITMAP, nullptr, &canvas);
    Paint(buffer ? canvas : screen, paint.rcPaint, screen);
    if (buffer) ::EndBufferedPaint(buffer, TRUE);
    ::EndPaint(window_, &paint);
    return 0;
}

Result Surface::OnEraseBackground(const WindowMessage&) {
    return 1;  // OnPaint covers everything; erasing before would flicker
}

Result Surface::OnPrintClient(const WindowMessage& message) {
    RECT area;
    ::GetClientRect(window_, &area);
    const HDC canvas = reinterpret_cast<HDC>(message.Word);
    Paint(canvas, area, canvas);
    return 0;
}

// The pointer.

Control* Surface::At(POINT point) const {
    const auto found = std::find_if(pieces_.rbegin(), pieces_.rend(), [&](const Piece& piece) {
        return piece.Owner->Enabled() && piece.Owner->Shown() &&
               ::PtInRect(&piece.Shown.Area, point);
    });
    return found == pieces_.rend() ? nullptr : found->Owner;
}

bool Surface::OverPressed(POINT point) const {
    if (pressed_) {
        const RECT area = context_.Scaling.Pixels(pressed_->Place());
        return ::PtInRect(&area, point);
    }
    RECT client;
    ::GetClientRect(window_, &client);
    return ::PtInRect(&client, point);
}

void Surface::Point(POINT point) {
    Control* control = pressing_ ? pressed_ : At(point);
    if (!control) return ground_.PointerMove(context_.Scaling.Twips(point));
    const RECT area = context_.Scaling.Pixels(control->Place());
    control->PointerMove(context_.Scaling.Twips(POINT{point.x - area.left, point.y - area.top}));
}

Result Surface::OnMouseMove(const WindowMessage& message) {
    Point(message.Point());
    context_.AfterEvent();
    return 0;
}

Result Surface::OnButtonDown(const WindowMessage& message) {
    if (pressing_) return 0;
    ::SetFocus(::GetAncestor(window_, GA_ROOT));  // keys scroll from here on
    pressing_ = true;
    leftButton_ = message.Id == WM_LBUTTONDOWN;
    pressed_ = At(message.Point());
    ::SetCapture(window_);
    pressed_ ? pressed_->MouseDown() : ground_.MouseDown();
    context_.AfterEvent();
    return 0;
}

Result Surface::OnButtonUp(const WindowMessage& message) {
    if (!pressing_ || leftButton_ != (message.Id == WM_LBUTTONUP)) return 0;
    Release(leftButton_ && OverPressed(message.Point()));
    return 0;
}

// The system took the pointer away, for a dialog say: the button counts as released elsewhere.
Result Surface::OnCaptureChanged(const WindowMessage&) {
    if (pressing_) Release(false);
    return 0;
}

void Surface::Release(bool click) {
    Control* const control = std::exchange(pressed_, nullptr);
    pressing_ = false;
    if (::GetCapture() == window_) ::ReleaseCapture();
    control ? control->MouseUp() : ground_.MouseUp();
    if (click && !context_.Closed) control ? control->Click() : ground_.Click();
    context_.AfterEvent();
}

// Child windows.

Result Surface::OnCommand(const WindowMessage& message) {
    NativeControl* child = NativeControl::Of(reinterpret_cast<HWND>(message.Long));
    if (!child) return std::nullopt;
    child->OnCommand(HIWORD(message.Word));
    context_.AfterEvent();
    return 0;
}

Result Surface::OnScroll(const WindowMessage& message) {
    NativeControl* child = NativeControl::Of(reinterpret_cast<HWND>(message.Long));
    if (!child) return std::nullopt;
    child->OnScroll(LOWORD(message.Word));
    context_.AfterEvent();
    return 0;
}

Result Surface::OnControlColor(const WindowMessage& message) {
    const NativeControl* child = NativeControl::Of(reinterpret_cast<HWND>(message.Long));
    if (!child) return std::nullopt;
    const Control& control = child->Owner();
    const HDC canvas = reinterpret_cast<HDC>(message.Word);
    const COLORREF back = Resolve(child->ShowsGround() ? ground_.BackColor() : control.BackColor());
    ::SetTextColor(canvas, ::GetSysColor(COLOR_GRAYTEXT));
    if (control.Enabled()) ::SetTextColor(canvas, Resolve(control.ForeColor()));
    ::SetBkColor(canvas, back);
    ::SetDCBrushColor(canvas, back);
    return reinterpret_cast<LRESULT>(::GetStockObject(DC_BRUSH));
}

}  // namespace platform::win32

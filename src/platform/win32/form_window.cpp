#include "platform/win32/form_window.h"

#include <memory>
#include <stdexcept>
#include <utility>

#include "platform/win32/colors.h"
#include "platform/win32/control_inspection.h"
#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

constexpr int kIconResource = 1;
constexpr int kRowsPerNotch = 3;

constexpr DWORD kMainStyle =
    WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD kDialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

void RegisterClass(const std::wstring& name, WNDPROC procedure) {
    const HINSTANCE program = ::GetModuleHandleW(nullptr);
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = program;
    windowClass.hIcon = ::LoadIconW(program, MAKEINTRESOURCEW(kIconResource));
    windowClass.hCursor = ::LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = name.c_str();
    ::RegisterClassExW(&windowClass);  // fails when it is registered already
}

}  // namespace

const MessageEntry<FormWindow> FormWindow::kHandlers[] = {
    {WM_ACTIVATE, &FormWindow::OnActivate},
    {WM_CLOSE, &FormWindow::OnClose},
    {WM_COMMAND, &FormWindow::OnCommand},
    {WM_COPYDATA, &FormWindow::OnCopyData},
    {WM_DPICHANGED, &FormWindow::OnDpiChanged},
    {WM_GETMINMAXINFO, &FormWindow::OnMinMaxInfo},
    {WM_MOVE, &FormWindow::OnMoved},
    {WM_SETTINGCHANGE, &FormWindow::OnSettingChange},
    {WM_SYSCOLORCHANGE, &FormWindow::OnSettingChange},
    {WM_MOUSEWHEEL, &FormWindow::OnWheel},
};

FormWindow::FormWindow(Form& form, HWND owner, std::function<void()> afterEvent,
                       std::function<void(Form&)> unload)
    : form_(form), unload_(std::move(unload)) {
    context_.AfterEvent = std::move(afterEvent);
    MakeWindow(owner);
    FillWindow();
}

FormWindow::~FormWindow() {
    context_.Closed = true;
    keyboard_.reset();
    controls_.reset();  // names its windows no longer, so before they go
    ::DestroyWindow(window_);
}

void FormWindow::MakeWindow(HWND owner) {
    const std::wstring name = Wide(form_.Name);
    RegisterClass(name, &Procedure);
    context_.Scaling =
        Scale(static_cast<int>(owner ? ::GetDpiForWindow(owner) : ::GetDpiForSystem()));
    bounds_ = form_.Bounds;
    const RECT area = context_.Scaling.Pixels(bounds_);
    window_ = ::CreateWindowExW(owner ? WS_EX_DLGMODALFRAME : 0, name.c_str(), L"",
                                owner ? kDialogStyle : kMainStyle, area.left, area.top,
                                area.right - area.left, area.bottom - area.top, owner, nullptr,
                                ::GetModuleHandleW(nullptr), this);
    if (!window_) throw std::runtime_error("The system makes no window.");
}

void FormWindow::FillWindow() {
    SetScale(static_cast<int>(::GetDpiForWindow(window_)));
    menu_.emplace(form_, window_);
    surface_.emplace(window_, context_,
                     Ground{[] { return kFaceColor; },
                            [this](PointerPosition position) {
                                if (form_.OnPointerMove) form_.OnPointerMove(position);
                            },
                            [] {}, [] {}, [] {}});
    controls_.emplace(form_, *surface_, context_);
    keyboard_.emplace(form_, window_, *controls_);
    ::SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
    MoveTo(bounds_);
    Update();
}

void FormWindow::SetScale(int dpi) {
    context_.Scaling = Scale(dpi);
    const std::unique_ptr<Fonts> before =
        std::exchange(context_.Lettering, std::make_unique<Fonts>(dpi));
    if (controls_) controls_->Rescale();  // while the fonts of before still exist
}

void FormWindow::MoveTo(const Place& bounds) {
    const RECT area = context_.Scaling.Pixels(bounds);
    ::SetWindowPos(window_, nullptr, area.left, area.top, area.right - area.left,
                   area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::Show() {
    ::ShowWindow(window_, SW_SHOWNORMAL);
    ::SetForegroundWindow(window_);
    // The system may keep another program's window in front; the form has been shown all the same.
    if (!activated_ && form_.OnActivate) form_.OnActivate();
}

void FormWindow::Update() {
    if (context_.Closed || !controls_) return;
    if (caption_ != form_.Caption)
        ::SetWindowTextW(window_, Wide(caption_ = form_.Caption).c_str());
    if (bounds_ != form_.Bounds) MoveTo(bounds_ = form_.Bounds);
    keyboard_->LeaveUnreachable();
    const Control* appeared = controls_->Update();
    if (appeared && ::IsWindowVisible(window_)) keyboard_->FocusFirstIn(*appeared);
    keyboard_->ReturnToReachable();
}

void FormWindow::Close() {
    if (context_.Closed) return;
    context_.Closed = true;
    const HWND owner = ::GetWindow(window_, GW_OWNER);
    if (owner) {
        ::EnableWindow(owner, TRUE);  // first: a disabled one would not be activated
        ::SetActiveWindow(owner);
    }
    ::ShowWindow(window_, SW_HIDE);
}

bool FormWindow::TakeKey(const MSG& message) {
    if (context_.Closed) return false;
    return Guarded(context_, [&] {
        const bool taken = keyboard_->TakeKey(message);
        if (taken) context_.AfterEvent();
        return taken;
    });
}

LRESULT CALLBACK FormWindow::Procedure(HWND window, UINT id, WPARAM word, LPARAM number) {
    if (id == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(number);
        ::SetWindowLongPtrW(window, GWLP_USERDATA,
                            reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* const self = reinterpret_cast<FormWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self || !self->keyboard_ || self->context_.Closed)
        return ::DefWindowProcW(window, id, word, number);
    const Result result = Guarded(self->context_, [&] { return self->Handle({id, word, number}); });
    return result ? *result : ::DefWindowProcW(window, id, word, number);
}

Result FormWindow::Handle(const WindowMessage& message) {
    if (const Result result = Dispatch(*this, kHandlers, message)) return result;
    return context_.Closed ? std::nullopt : surface_->Handle(message);
}

// Called for its own focus first, the default moves the focus to the window itself.
Result FormWindow::OnActivate(const WindowMessage& message) {
    if (LOWORD(message.Word) == WA_INACTIVE) {
        keyboard_->RememberFocus();
        return std::nullopt;
    }
    ::DefWindowProcW(window_, message.Id, message.Word, message.Long);
    activated_ = true;
    if (form_.OnActivate) form_.OnActivate();
    if (context_.Closed) return 0;
    Update();
    if (!::IsIconic(window_)) keyboard_->RestoreFocus();
    return 0;
}

Result FormWindow::OnClose(const WindowMessage&) {
    const bool agreed = !form_.OnCloseRequest || form_.OnCloseRequest();
    if (agreed && !context_.Closed) unload_(form_);
    context_.AfterEvent();
    return 0;
}

Result FormWindow::OnCommand(const WindowMessage& message) {
    if (message.Long != 0 || !menu_->Run(LOWORD(message.Word))) return std::nullopt;
    context_.AfterEvent();
    return 0;
}

Result FormWindow::OnCopyData(const WindowMessage& message) {
    const auto& request = *reinterpret_cast<const COPYDATASTRUCT*>(message.Long);
    return AnswerInspection(reinterpret_cast<HWND>(message.Word), request, form_, *controls_);
}

Result FormWindow::OnDpiChanged(const WindowMessage& message) {
    SetScale(HIWORD(message.Word));
    const RECT& area = *reinterpret_cast<const RECT*>(message.Long);
    ::SetWindowPos(window_, nullptr, area.left, area.top, area.right - area.left,
                   area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
    return 0;
}

// The window has the size that its form says, even on a smaller screen.
Result FormWindow::OnMinMaxInfo(const WindowMessage& message) {
    const RECT area = context_.Scaling.Pixels(bounds_);
    reinterpret_cast<MINMAXINFO*>(message.Long)->ptMaxTrackSize = {area.right - area.left,
                                                                   area.bottom - area.top};
    return 0;
}

Result FormWindow::OnMoved(const WindowMessage&) {
    if (::IsIconic(window_)) return std::nullopt;
    RECT area;
    ::GetWindowRect(window_, &area);
    form_.Bounds.Left = bounds_.Left = context_.Scaling.Twips(area.left);
    form_.Bounds.Top = bounds_.Top = context_.Scaling.Twips(area.top);
    return std::nullopt;
}

// The user has chosen another font or other colours.
Result FormWindow::OnSettingChange(const WindowMessage&) {
    SetScale(context_.Scaling.Dpi());
    return std::nullopt;
}

Result FormWindow::OnWheel(const WindowMessage& message) {
    wheel_ -= GET_WHEEL_DELTA_WPARAM(message.Word) * kRowsPerNotch;
    const int rows = wheel_ / WHEEL_DELTA;
    wheel_ %= WHEEL_DELTA;
    if (rows != 0 && form_.OnWheel) form_.OnWheel(rows);
    context_.AfterEvent();
    return 0;
}

}  // namespace platform::win32

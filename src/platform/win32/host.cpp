#include "platform/win32/host.h"

#include <algorithm>

#include <commctrl.h>
#include <uxtheme.h>

#include "platform/win32/scale.h"

namespace platform::win32 {

namespace {

// Of the messages that one yield hands out: a stream that never ends must not hold up the work.
constexpr int kMostMessages = 500;

Scale SystemScale() {
    return Scale(static_cast<int>(::GetDpiForSystem()));
}

}  // namespace

Host::Host() {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
    ::InitCommonControlsEx(&classes);
    ::BufferedPaintInit();
}

Host::~Host() {
    windows_.clear();
    ::BufferedPaintUnInit();
}

// Asking for waiting messages takes up to 100 microseconds, asking the clock a few nanoseconds.
// The clock's tick is about a frame long.
void Host::DoEvents() {
    const unsigned long long tick = ::GetTickCount64();
    if (tick == lastTick_) return;
    lastTick_ = tick;
    BringUpToDate();
    HandOutWaiting();
}

void Host::Show(Form& form) {
    if (form.Controls.empty()) return;
    FormWindow* shown = Find(form);
    (shown ? *shown : Open(form, nullptr)).Show();
}

void Host::ShowModal(Form& form) {
    const HWND owner = DialogOwner();
    BringUpToDate();
    FormWindow& window = Open(form, owner);
    if (owner) ::EnableWindow(owner, FALSE);
    window.Show();
    RunUntilUnloaded(form);
}

void Host::Unload(Form& form) {
    if (FormWindow* window = Find(form)) window->Close();
    Bury();
}

int Host::ScreenWidth() const {
    return SystemScale().Twips(::GetSystemMetrics(SM_CXSCREEN));
}

int Host::ScreenHeight() const {
    return SystemScale().Twips(::GetSystemMetrics(SM_CYSCREEN));
}

void Host::RunUntilUnloaded(const Form& form) {
    while (Find(form)) {
        HandOutWaiting();
        BringUpToDate();
        if (Find(form))
            ::MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

void Host::BringUpToDate() {
    for (const auto& window : windows_) window->Update();
}

HWND Host::DialogOwner() const {
    const HWND active = ::GetActiveWindow();
    HWND owner = nullptr;
    for (const auto& window : windows_) {
        if (window->CanGo() || !::IsWindowVisible(window->Window())) continue;
        if (window->Window() == active) return active;
        owner = window->Window();
    }
    return owner;
}

FormWindow* Host::Find(const Form& form) const {
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const auto& window) { return window->Shows(form); });
    return found == windows_.end() ? nullptr : found->get();
}

FormWindow& Host::Open(Form& form, HWND owner) {
    windows_.push_back(std::make_unique<FormWindow>(
        form, owner, [this] { BringUpToDate(); }, [this](Form& closed) { Unload(closed); }));
    return *windows_.back();
}

void Host::HandOutWaiting() {
    MSG message;
    for (int count = 0; count < kMostMessages; ++count) {
        if (!::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) return;
        HandOut(message);
        Bury();
    }
}

void Host::HandOut(const MSG& message) {
    const HWND root = ::GetAncestor(message.hwnd, GA_ROOT);
    const auto window = std::find_if(windows_.begin(), windows_.end(),
                                     [&](const auto& each) { return each->Window() == root; });
    if (window != windows_.end() && (*window)->TakeKey(message)) return;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
}

// A closed form's window goes when no procedure of it is under way below us on the stack.
void Host::Bury() {
    std::vector<std::unique_ptr<FormWindow>> dead;  // they go when the list is whole again
    for (auto& window : windows_)
        if (window->CanGo()) dead.push_back(std::move(window));
    std::erase(windows_, nullptr);
}

}  // namespace platform::win32

#include "app/cli_session.h"

#include "app/cli_rows.h"
#include "platform/console.h"

namespace app {

namespace {

using platform::Stream;

constexpr long long kYieldsPerLook = 64;   // at the clock
constexpr long long kCountdownPace = 100;  // milliseconds
constexpr int kMostAttempts = 20;          // to find a slot that no other run takes

}  // namespace

void WriteError(std::string_view text) {
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    std::string line = platform::IsTerminal(Stream::Error) ? TerminalText(text) : std::string(text);
    platform::WriteAll(Stream::Error, line += '\n');
}

CliSession::CliSession(bool noHistory)
    : noHistory_(noHistory),
      showsCountdown_(platform::IsTerminal(Stream::Error)),
      store_(platform::OpenSystemRegistry()),
      registry_(*store_) {
    platform::CatchInterrupts();
    host_.OnYield = [this](long long yields) { OnYield(yields); };
    dialogs_.OnMessage = [this](const platform::Message& message) { OnMessage(message); };
    form_ = std::make_unique<FormMain>(
        FormMain::Environment{host_, platform::SystemFiles(), registry_, dialogs_, shell_});
    form_->Load("");
    form_->Filter = {};  // not that of the pair remembered first
}

bool CliSession::SetFilter(const CliOptions& options) {
    if (!options.HasOnly && !options.HasExclude) return true;
    rules::FilterDialog& dialog = form_->FilterDialog;
    host_.OnModal = [&](platform::Form&) {
        (options.HasOnly ? dialog.OptionOnly : dialog.OptionExc).Click();
        dialog.TextAddto.Type(options.FilterList);
        dialog.Command1.Click();
        dialog.CommandOK.Click();
    };
    dialog.Edit(form_->Window);
    return dialogs_.Messages.empty();
}

void CliSession::Run(platform::Button& button) {
    button.Click();
    WipeCountdown();
}

bool CliSession::Stopped() {
    return platform::InterruptRequested();
}

void CliSession::WriteHistory() {
    registry_.Commit();
}

// Runs that end at the same time may have chosen the same slot: all but one look for another.
void CliSession::RememberPair() {
    if (noHistory_) return;
    for (int attempt = 1; !registry_.Commit() && attempt < kMostAttempts; ++attempt)
        form_->History().SaveProfile(form_->Combo1.Text(), form_->Combo2.Text(),
                                     form_->Filter.FilterExtensions,
                                     FilterFlagText(form_->Filter.FilterOnlyMode));
}

void CliSession::ReportTroubles() {
    const compare::ScanTroubles& troubles = form_->Comparison().Troubles();
    for (const platform::Outcome& outcome : troubles.UnreadableFolders)
        WriteError("cannot read folder '" + outcome.Path + "': " + outcome.Reason);
    const auto named = static_cast<std::int64_t>(troubles.UnreadableFolders.size());
    if (troubles.UnreadableCount > named)
        WriteError("cannot read " + std::to_string(troubles.UnreadableCount - named) +
                   " more folders");
    if (troubles.UnansweredLookUps != 0)
        WriteError("cannot look at " + std::to_string(troubles.UnansweredLookUps) +
                   " files or folders");
}

void CliSession::Say(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find("\r\n");
        WriteError(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 2);
    }
}

// Called several times a file: the clock is looked at only now and then.
void CliSession::OnYield(long long yields) {
    if (!stopPressed_ && Stopped()) PressStop();
    if (showsCountdown_ && (yields % kYieldsPerLook == 0 || !form_->lblComparing.Visible()))
        ShowCountdown();
}

// Nothing that could be stopped may run yet; then the next yield tries again.
void CliSession::PressStop() {
    for (platform::Button* button : {&form_->Command8, &form_->Command9, &form_->Command10}) {
        if (!button->Visible()) continue;
        stopPressed_ = true;
        button->Click();
    }
    if (form_->Command3.Caption() != "Stop") return;
    stopPressed_ = true;
    form_->Command3.Click();
}

void CliSession::ShowCountdown() {
    if (!form_->lblComparing.Visible()) {
        WipeCountdown();
        return;
    }
    const long long now = platform::CoarseMilliseconds();
    if (now - countdownShownAt_ < kCountdownPace) return;
    countdownShownAt_ = now;
    std::string line = "\r" + form_->lblComparing.Caption();
    const std::size_t length = line.size() - 1;
    if (length < countdownLength_) line.append(countdownLength_ - length, ' ');
    countdownLength_ = std::max(countdownLength_, length);
    platform::WriteAll(Stream::Error, line);
}

void CliSession::WipeCountdown() {
    if (countdownLength_ == 0) return;
    platform::WriteAll(Stream::Error, "\r" + std::string(countdownLength_, ' ') + "\r");
    countdownLength_ = 0;
}

// A result is part of the summary and goes out with it.
void CliSession::OnMessage(const platform::Message& message) {
    WipeCountdown();
    if (message.Buttons == platform::MessageButtons::YesNo) {
        dialogs_.YesNoAnswer = answerYes_;
        if (answerYes_) return;
        platform::WriteAll(Stream::Error, message.Text + " [y/N] ");
        const std::string answer = platform::ReadLine();
        dialogs_.YesNoAnswer = answer == "y" || answer == "Y" || answer == "yes";
        return;
    }
    const bool isSyncResult = !form_->Synchronisation().SyncMode().empty();
    if (!isSyncResult) Say(message.Text);
}

}  // namespace app

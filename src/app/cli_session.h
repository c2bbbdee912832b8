// The window that the command line program works on, and the terminal in the place of its user.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/cli_options.h"
#include "app/deferred_registry.h"
#include "app/form_main.h"
#include "platform/headless/headless_host.h"
#include "platform/paths.h"

namespace app {

// One line on standard error, whatever names it holds; blanks at its end are cut and, where it is a
// terminal, control characters escaped.
void WriteError(std::string_view text);

class CliSession {
  public:
    // The pair is remembered by RememberPair(), unless `noHistory`.
    explicit CliSession(bool noHistory);

    FormMain& Form() { return *form_; }

    // Types the filter options into the filter dialog. False when the dialog refuses them.
    bool SetFilter(const CliOptions& options);

    // The message boxes shown so far; each has gone to standard error unless it is a result.
    const std::vector<platform::Message>& Messages() const { return dialogs_.Messages; }

    // Clicks a button whose command may take long.
    void Run(platform::Button& button);

    // An interrupt has come: it is the Stop button, of what runs or of what comes next.
    static bool Stopped();

    // Writes what the history is to hold.
    void WriteHistory();

    // The same for the pair that was compared, if pairs are to be remembered.
    void RememberPair();

    // Answers every question with yes instead of asking on the terminal.
    void AnswerYes(bool yes) { answerYes_ = yes; }

    // What could not be read in the comparison, named on standard error.
    void ReportTroubles();

    // The text of a message box, which may have several lines.
    void Say(std::string_view text);
    void Complain(std::string_view text) { WriteError("varnel-cli: " + std::string(text)); }

  private:
    void OnYield(long long yields);
    void PressStop();
    void ShowCountdown();
    void WipeCountdown();
    void OnMessage(const platform::Message& message);

    const bool noHistory_;
    const bool showsCountdown_;
    bool answerYes_ = false;
    bool stopPressed_ = false;
    long long countdownShownAt_ = 0;
    std::size_t countdownLength_ = 0;
    std::unique_ptr<platform::Registry> store_;
    DeferredRegistry registry_;
    platform::headless::Host host_;
    platform::headless::Dialogs dialogs_;
    platform::headless::Shell shell_;
    std::unique_ptr<FormMain> form_;
};

}  // namespace app

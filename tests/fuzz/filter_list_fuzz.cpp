// The file filter's dialog: whatever is typed, pasted and clicked. Texts: what the user does; the
// first character says what, the rest with what.
#include <algorithm>
#include <set>

#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"
#include "rules/file_filter.h"
#include "rules/filter_dialog.h"

using fuzzing::Require;
using Texts = std::vector<std::string>;

namespace {

struct Dialog {
    // Opens the dialog and does what the texts say, until it is closed. The filter afterwards.
    std::string Edit(const Texts& actions) {
        const std::string before = Described();
        accepted_ = false;
        host_.OnModal = [&](platform::Form& form) {
            for (const std::string& action : actions) {
                if (!host_.IsShown(form)) return;
                if (!action.empty()) Act(action[0], action.substr(1));
                RequireSoundList();
            }
        };
        dialog_.Edit(owner_);
        if (accepted_) RequireSoundFilter();
        Require(accepted_ || Described() == before, "only OK changes the filter");
        return Described();
    }

    bool Pasted = false;  // at any time

  private:
    std::string Described() const {
        return filter_.FilterExtensions + (filter_.FilterOnlyMode ? " only" : " not");
    }

    void Act(char what, const std::string& with) {
        if (what == 't') dialog_.TextAddto.Type(with);
        if (what == 'p') dialog_.TextAddto.Paste(with);
        if (what == '+') dialog_.Command1.Click();
        if (what == 's') dialog_.List1.Select(with.empty() ? -1 : with[0] - '0');
        if (what == '-') dialog_.Command2.Click();
        if (what == 'o') dialog_.OptionOnly.Click();
        if (what == 'x') dialog_.OptionExc.Click();
        if (what == '.') dialog_.Command3.Click();
        if (what == '!') dialog_.CommandOK.Click();
        Pasted = Pasted || what == 'p';
        accepted_ = what == '!' && !host_.IsShown(dialog_.FormFilter);
    }

    void RequireSoundList() const {
        const Texts& entries = dialog_.List1.Entries();
        Require(std::set(entries.begin(), entries.end()).size() == entries.size(),
                "no entry twice");
        const char* const taken = "abcdefghijklmnopqrstuvwxyz0123456789";
        for (const std::string& entry : entries)
            Require(
                !entry.empty() && (Pasted || entry.find_first_not_of(taken) == std::string::npos),
                "entries are not empty; typed ones are lower-case letters and digits");
    }

    void RequireSoundFilter() const {
        std::string list;
        for (const std::string& entry : dialog_.List1.Entries()) {
            list += '/' + entry;
            Require(Pasted || entry.size() >= 10 ||
                        rules::PassesFileFilter(filter_, "x." + entry) == filter_.FilterOnlyMode,
                    "a listed extension counts as listed");
        }
        Require(list == filter_.FilterExtensions, "the filter is the list, slashes in front");
        Require(!list.empty() || !filter_.FilterOnlyMode, "only mode needs a list");
    }

    bool accepted_ = false;
    rules::FileFilter filter_;
    platform::Form owner_{"FormMain"};
    platform::headless::Host host_;
    platform::headless::Dialogs dialogs_;
    rules::FilterDialog dialog_{filter_, host_, dialogs_, "Varnel"};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Dialog dialog;
    const std::string first = dialog.Edit(fuzzing::Texts(data, size));
    // A pasted entry that holds a slash is two of them from the second opening on.
    const std::string second = dialog.Edit({"!"});
    Require(dialog.Pasted || second == first, "opening and OK change nothing");
    Require(dialog.Edit({"!"}) == second, "opening and OK change nothing once more");
    return 0;
}

// The file filter's dialog: whatever is typed and clicked. Texts: what the user does; the first
// character says what, the rest with what.
#include <set>

#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"
#include "rules/filter_dialog.h"

using fuzzing::Require;
using Texts = std::vector<std::string>;

namespace {

struct Dialog {
    // Opens the dialog and does what the texts say, until it is closed. The filter afterwards.
    std::string Edit(const Texts& actions) {
        const std::string before = Filter.FilterExtensions;
        bool accepted = false;
        Host.OnModal = [&](platform::Form& form) {
            for (const std::string& action : actions) {
                if (action.empty() || !Host.IsShown(form)) continue;
                Act(action[0], action.substr(1));
                accepted = action[0] == '!' && !Host.IsShown(form);
            }
        };
        Rules.Edit(Owner);
        const std::string list = SoundList();
        Require(Filter.FilterExtensions == (accepted ? list : before),
                "OK, and nothing else, makes the filter the list");
        Require(!accepted || !list.empty() || !Filter.FilterOnlyMode, "only mode needs a list");
        return Filter.FilterExtensions;
    }

    void Act(char what, const std::string& with) {
        if (what == 't') Rules.TextAddto.Type(with);
        if (what == 'p') Rules.TextAddto.Paste(with);
        Pasted = Pasted || what == 'p';
        if (what == '+') Rules.Command1.Click();
        if (what == 's') Rules.List1.Select(with.empty() ? -1 : with[0] - '0');
        if (what == '-') Rules.Command2.Click();
        if (what == 'o') Rules.OptionOnly.Click();
        if (what == 'x') Rules.OptionExc.Click();
        if (what == '.') Rules.Command3.Click();
        if (what == '!') Rules.CommandOK.Click();
    }

    // The entries, each with a slash in front.
    std::string SoundList() const {
        std::set<std::string> different{""};
        std::string list;
        for (const std::string& entry : Rules.List1.Entries()) {
            Require(different.insert(entry).second, "no entry stands there twice, none is empty");
            Require(Pasted || entry.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789") ==
                                  std::string::npos,
                    "typed entries are lower-case letters and digits");
            list += '/' + entry;
        }
        return list;
    }

    bool Pasted = false;  // at any time
    rules::FileFilter Filter;
    platform::Form Owner{"FormMain"};
    platform::headless::Host Host;
    platform::headless::Dialogs Dialogs;
    rules::FilterDialog Rules{Filter, Host, Dialogs, "Varnel"};
};

}  // namespace

void fuzzing::Examine(const std::string& input) {
    Dialog dialog;
    dialog.Edit(fuzzing::Texts(input, 0));
    const std::string filter = dialog.Edit({"!"});  // makes two of a pasted entry with a slash
    Require(dialog.Edit({"!"}) == filter, "opening and OK change nothing");
}

// The file filter's dialog: whatever is typed, pasted and clicked.
//
// Each text is what the user does: its first character says what, the rest with what (see Act).
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "fuzz/fuzzing.h"
#include "platform/headless/headless_host.h"
#include "rules/file_filter.h"
#include "rules/filter_dialog.h"

namespace {

using fuzzing::Require;
using rules::FileFilter;
using Texts = std::vector<std::string>;

bool IsLowerOrDigit(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

bool operator==(const FileFilter& a, const FileFilter& b) {
    return a.FilterExtensions == b.FilterExtensions && a.FilterOnlyMode == b.FilterOnlyMode;
}

class Dialog {
  public:
    // Opens the dialog and does what the texts say, until it is closed.
    void Edit(const Texts& actions) {
        const FileFilter before = Filter;
        accepted_ = false;
        host_.OnModal = [&](platform::Form& form) {
            for (const std::string& action : actions) {
                if (!host_.IsShown(form)) return;
                if (!action.empty()) Act(action[0], action.substr(1));
                RequireSoundList();
            }
        };
        dialog_.Edit(owner_);
        if (accepted_)
            RequireSoundFilter();
        else
            Require(Filter == before, "only OK changes the filter");
    }

    FileFilter Filter;
    bool Pasted = false;  // at any time

  private:
    void Act(char what, const std::string& with) {
        switch (what) {
            case 't':
                return dialog_.TextAddto.Type(with);
            case 'p':
                Pasted = true;
                return dialog_.TextAddto.Paste(with);
            case '+':
                return dialog_.Command1.Click();
            case 's':
                return dialog_.List1.Select(with.empty() ? -1 : with[0] - '0');
            case '-':
                return dialog_.Command2.Click();
            case 'o':
                return dialog_.OptionOnly.Click();
            case 'x':
                return dialog_.OptionExc.Click();
            case '!':
                dialog_.CommandOK.Click();
                accepted_ = !host_.IsShown(dialog_.FormFilter);
                return;
            case '.':
                return dialog_.Command3.Click();
            default:
                return;
        }
    }

    void RequireSoundList() const {
        const Texts& entries = dialog_.List1.Entries();
        Require(std::set<std::string>(entries.begin(), entries.end()).size() == entries.size(),
                "no entry twice");
        for (const std::string& entry : entries) {
            Require(!entry.empty(), "no empty entry");
            Require(Pasted || std::all_of(entry.begin(), entry.end(), IsLowerOrDigit),
                    "typed entries are lower-case letters and digits");
        }
    }

    void RequireSoundFilter() const {
        const std::string& list = Filter.FilterExtensions;
        std::string expected;
        for (const std::string& entry : dialog_.List1.Entries()) expected += '/' + entry;
        Require(list == expected, "the filter is the list, each entry behind a slash");
        Require(std::none_of(list.begin(), list.end(), [](char c) { return c >= 'A' && c <= 'Z'; }),
                "no capital letter in the list");
        Require(!list.empty() || !Filter.FilterOnlyMode, "only mode needs a list");
        for (const std::string& entry : dialog_.List1.Entries())
            if (!Pasted && entry.size() < 10)
                Require(rules::PassesFileFilter(Filter, "name." + entry) == Filter.FilterOnlyMode,
                        "a listed extension counts as listed");
        platform::Label label;
        rules::DescribeFileFilter(Filter, label);
        Require(list.empty() == (label.Caption() == "Sync all type of file."),
                "a filter is described");
    }

    bool accepted_ = false;
    platform::Form owner_{"FormMain"};
    platform::headless::Host host_;
    platform::headless::Dialogs dialogs_;
    rules::FilterDialog dialog_{Filter, host_, dialogs_, "Varnel"};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Dialog dialog;
    dialog.Edit(fuzzing::Texts(fuzzing::Bytes(data, size)));
    const FileFilter first = dialog.Filter;
    // A pasted entry that holds a slash is two of them from the second opening on.
    dialog.Edit({"!"});
    const FileFilter second = dialog.Filter;
    Require(dialog.Pasted || second == first, "opening and OK change nothing");
    dialog.Edit({"!"});
    Require(dialog.Filter == second, "opening and OK change nothing once more");
    return 0;
}

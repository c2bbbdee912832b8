#include "compare/compare_command.h"

#include <utility>

#include "platform/paths.h"
#include "platform/trimmed.h"

namespace compare {

// Hands what a walk finds to the rule of its side.
class CompareCommand::Classify : public PairVisitor {
  public:
    explicit Classify(PairClassifier& classifier) : classifier_(classifier) {}
    void Visit(const FilePair& pair, Side found, std::int32_t& Fcount) override {
        if (found == Side::One)
            classifier_.ClassifySide1(pair, Fcount);
        else
            classifier_.ClassifySide2(pair, Fcount);
    }

  private:
    PairClassifier& classifier_;
};

CompareCommand::CompareCommand(ComparePanel& panel, Parts parts)
    : panel_(panel),
      parts_(std::move(parts)),
      classifier_(parts_.Table, parts_.Filter, parts_.Host, parts_.Labels) {}

void CompareCommand::Compare() {
    if (panel_.Command3.Caption() != "Compare") {
        RequestStop();
        return;
    }
    // Before the first yield: a window that is closed there has requested a stop.
    parts_.Table.StopRequested = false;
    parts_.Host.DoEvents();
    parts_.Host.DoEvents();
    SetCaptionAndYield(panel_.Command3, "Stop");

    // Read once: what is typed into the boxes meanwhile belongs to the next comparison.
    const std::string folder1(platform::Trimmed(parts_.Owner.FolderText1()));
    const std::string folder2(platform::Trimmed(parts_.Owner.FolderText2()));
    if (!Validate(folder1, folder2)) {
        panel_.Command3.SetCaption("Compare");
        return;
    }
    folder1_ = platform::WithSeparator(folder1);
    folder2_ = platform::WithSeparator(folder2);
    parts_.Owner.RememberPair(folder1, folder2);
    parts_.Owner.DescribeFileFilter();
    FillTable();
    ShowFirstView();
}

void CompareCommand::RequestStop() {
    parts_.Table.StopRequested = true;
    parts_.Host.DoEvents();
    SetCaptionAndYield(panel_.Command3, "Compare");
}

// Equality is that of the texts: the same folder by two names may be compared with itself.
bool CompareCommand::Validate(const std::string& folder1, const std::string& folder2) {
    const auto exists = [this](const std::string& folder) {
        return parts_.Files.FolderExists(platform::WithSeparator(folder));
    };
    const char* complaint = nullptr;
    if (folder1.empty())
        complaint = "Please enter 'Folder 1' !    ";
    else if (folder2.empty())
        complaint = "Please enter 'Folder 2' !    ";
    else if (folder1 == folder2)
        complaint = "'Folder 1' and 'Folder 2' are same folder !    ";
    else if (!exists(folder1))
        complaint = "Folder 1 did not exist!    ";
    else if (!exists(folder2))
        complaint = "Folder 2 did not exist!    ";
    if (!complaint) return true;
    parts_.Dialogs.ShowMessage({complaint, platform::MessageIcon::Critical,
                                platform::MessageButtons::Ok, parts_.ApplicationTitle});
    return false;
}

void CompareCommand::FillTable() {
    CompareTable& table = parts_.Table;
    const CountLabels& labels = parts_.Labels;
    labels.lblComparing.SetVisible(true);
    labels.lblComparing.BringToFront();
    labels.LabelAllFile.SetVisible(false);
    SetCaptionAndYield(labels.lblComparing, "Comparing ...");

    const std::int64_t unansweredBefore = parts_.Files.UnansweredLookUps();
    Classify visitor(classifier_);
    FolderScanner scanner(parts_.Files, parts_.Host, visitor, table.StopRequested);
    table.Fcount = 0;
    scanner.CountFiles(Side::One, folder1_, table.Fcount);
    const std::int32_t mostSame = table.Fcount;
    scanner.CountFiles(Side::Two, folder2_, table.Fcount);
    SetCaptionAndYield(labels.lblComparing, std::to_string(table.Fcount));

    table.Clear(scanner.Texts());
    // The longest list, as a rule; moved while it grows it takes a third more memory pages.
    table.SameList.reserve(static_cast<std::size_t>(mostSame));
    parts_.Owner.SetScrollRange(0);
    ShowCount(labels.LabelNewFile, "New Files ( ", 0, " ) ");
    ShowCount(labels.LabelChgFile, "Modified Files ( ", 0, " ) ");
    ShowCount(labels.LabelNewChgFile, "New and Modified Files ( ", 0, " ) ");
    ShowCount(labels.LabelAllFile, "Same Files ( ", 0, " ) ");

    scanner.WalkFolder(folder1_, folder2_, table.Fcount, Side::One);
    parts_.Host.DoEvents();
    scanner.WalkFolder(folder2_, folder1_, table.Fcount, Side::Two);
    parts_.Host.DoEvents();
    troubles_ = scanner.Troubles();
    troubles_.UnansweredLookUps = parts_.Files.UnansweredLookUps() - unansweredBefore;

    table.BuildNewChgList();
    parts_.Host.DoEvents();
    labels.lblComparing.SetVisible(false);
    labels.LabelAllFile.SetVisible(true);
}

void CompareCommand::ShowFirstView() {
    const CompareTable& table = parts_.Table;
    const bool anythingToSync = table.NewChgCount() >= 1;
    parts_.Owner.SetScrollRange(anythingToSync ? table.NewChgCount() : table.SameCount());
    parts_.Owner.ResetScroll();
    panel_.Command3.SetCaption("Compare");
    parts_.Owner.ShowView(anythingToSync ? "NewChg" : "Same");
    if (anythingToSync && panel_.CheckSync.Value()) parts_.Owner.DoubleSync();
}

void CompareCommand::SetCaptionAndYield(platform::Captioned& control, std::string_view caption) {
    control.SetCaption(caption);
    parts_.Host.DoEvents();
}

}  // namespace compare

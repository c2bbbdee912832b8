// Synchronising: the files on disk, the message, the results in the grid.
#include "window/window_fixture.h"

namespace window {

namespace {

using fakes::TempFolder;

class SyncTest : public WindowTest {
  protected:
    static ShownMessage Done(MessageKind kind, const std::string& text) {
        return {kind, "Varnel", text};
    }
    static void ExpectIdle(const Program& varnel) {
        for (const char* shown : {"Command4", "Command5", "Command6"})
            EXPECT_TRUE(varnel.Shows(shown)) << shown;
        for (const char* hidden : {"Command8", "Command9", "Command10"})
            EXPECT_FALSE(varnel.Shows(hidden)) << hidden;
    }
    static Texts Labels(const Program& varnel) {
        Texts texts;
        for (const char* name : {"LabelNewFile", "LabelChgFile", "LabelNewChgFile", "LabelAllFile"})
            texts.push_back(varnel.Text(name));
        return texts;
    }
    // Holds a file so that nobody else can open it.
    platform::win32::Handle Locked(std::string_view name) const {
        platform::win32::Handle file(::CreateFileA(Files.Path(name).c_str(), GENERIC_READ, 0,
                                                   nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_TRUE(file.IsOpen()) << name;
        return file;
    }
};

TEST_F(SyncTest, DoubleSyncBringsBothFoldersUpToDate) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel),
              Done(MessageKind::Information,
                   "Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
                   "Succeed:   5  Files."));
    varnel.WaitForQuiet();
    ExpectIdle(varnel);
    for (const std::string side : {"1", "2"}) {
        const auto read = [&](const char* name) { return Files.Read(side + "/" + name); };
        EXPECT_EQ(read("new1.txt"), "new in 1");
        EXPECT_EQ(read("sub/new2.txt"), "another");
        EXPECT_EQ(read("only2.txt"), "new in 2");
        EXPECT_EQ(read("chg-left.txt"), "newer content");
        EXPECT_EQ(read("chg-right.txt"), "newer content");
        EXPECT_EQ(Files.Names(side), (Texts{"chg-left.txt", "chg-right.txt", "new1.txt",
                                            "only2.txt", "same.txt", "sub"}));
    }
    EXPECT_EQ(Labels(varnel), (Texts{"Sync --> ( 3 ) ", "( 2 ) <-- Sync", "Sync Fail ( 0 ) ",
                                     "Sync Total ( 5 ) "}));
    EXPECT_EQ(varnel.Text("LabelShow"), "Synchronized Files:  5");
    EXPECT_EQ(varnel.Rows()[3],
              "4.|chg-left.txt|13|" + kNewerText + "|<-- OK <--|chg-left.txt|13|" + kNewerText);
    // Times came along: nothing is left to be done.
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "Same Files:  6");
}

TEST_F(SyncTest, LeftSyncWritesOnlyToFolder2) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("Command5");
    EXPECT_EQ(Answer(varnel), Done(MessageKind::Information,
                                   "Synchronization completed.      \r\n\r\nSucceed:   3  Files."));
    EXPECT_EQ(Files.Read("2/sub/new2.txt"), "another");
    EXPECT_EQ(Files.Read("2/chg-right.txt"), "newer content");
    EXPECT_EQ(Files.Read("1/chg-left.txt"), "old");
    EXPECT_FALSE(Files.Exists("1/only2.txt"));
    EXPECT_EQ(Labels(varnel), (Texts{"Sync --> ( 3 ) ", "( 0 ) <-- Sync", "Sync Fail ( 0 ) ",
                                     "Sync Total ( 3 ) "}));
    varnel.WaitForQuiet();
    ExpectIdle(varnel);
}

TEST_F(SyncTest, RightSyncWritesOnlyToFolder1) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.RunMenu("mnuRightSync");
    EXPECT_EQ(Answer(varnel), Done(MessageKind::Information,
                                   "Synchronization completed.      \r\n\r\nSucceed:   2  Files."));
    EXPECT_EQ(Files.Read("1/only2.txt"), "new in 2");
    EXPECT_EQ(Files.Read("1/chg-left.txt"), "newer content");
    EXPECT_EQ(Files.Read("2/chg-right.txt"), "old");
    EXPECT_FALSE(Files.Exists("2/new1.txt"));
    // After a sync the labels show its results, apart from the second.
    const std::pair<const char*, const char*> views[] = {
        {"LabelNewFile", "Sync from Folder 1 to 2:  0"},
        {"LabelChgFile", "Modified Files:  2"},
        {"LabelNewChgFile", "Sync Failed Files:  0"},
        {"LabelAllFile", "Synchronized Files:  2"},
    };
    varnel.WaitForQuiet();
    for (const auto& [label, heading] : views) {
        varnel.Click(label);
        varnel.WaitForText("LabelShow", heading);
    }
}

TEST_F(SyncTest, OnlyTheShownListIsSynchronised) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("LabelChgFile");
    varnel.WaitForText("LabelShow", "Modified Files:  2");
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel).Text,
              "Synchronization  'Modified Files'  completed.      \r\n\r\nSucceed:   2  Files.");
    EXPECT_FALSE(Files.Exists("2/new1.txt"));
}

TEST_F(SyncTest, SaysWhenNothingIsToBeDone) {
    Put("2/only2.txt", "new in 2");
    Put("1/same.txt", "same");
    Put("2/same.txt", "same");
    const Program varnel(Pair());
    varnel.Compare();
    const struct {
        const char* Label;
        const char* Heading;
        const char* Button;
        const char* Text;
    } cases[] = {
        {"LabelNewFile", "New Files:  1", "Command5",
         "No new file in folder 1 need to be synchronized.    "},
        {"LabelNewChgFile", "New and Modified Files:  1", "Command5",
         "No new / modified file in folder 1 need to be synchronized.    "},
        {"LabelAllFile", "Same Files:  1", "Command6",
         "No new / modified file in folder 2 need to be synchronized.    "},
        {"LabelAllFile", "Same Files:  1", "Command4",
         "No new / modified file need to be synchronized.    "},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Button);
        varnel.Click(each.Label);
        varnel.WaitForText("LabelShow", each.Heading);
        varnel.Click(each.Button);
        EXPECT_EQ(Answer(varnel), Done(MessageKind::Exclamation, each.Text));
        varnel.WaitForQuiet();
    }
    varnel.Click("LabelChgFile");  // an empty list: not even a message
    varnel.WaitForText("LabelShow", "Modified Files:  0");
    varnel.Click("Command4");
    varnel.Click("LabelAllFile");
    varnel.WaitForText("LabelShow", "Same Files:  1");
    EXPECT_FALSE(ShowsMessage(varnel));
}

TEST_F(SyncTest, FollowsTheDirectionsOfTheRows) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    for (const auto& [cell, option] : {std::pair{"sMAC(0)", "Option3"}, {"sMAC(4)", "Option2"}}) {
        varnel.Click(cell);
        varnel.WaitFor("Picture3", "open", [](const Seen& panel) { return panel.Visible; });
        varnel.Set(option);
        varnel.Click("Command2");
        varnel.WaitFor("Picture3", "closed", [](const Seen& panel) { return !panel.Visible; });
    }
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel).Text,
              "Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
              "Succeed:   4  Files.");
    EXPECT_FALSE(Files.Exists("2/new1.txt"));
    EXPECT_EQ(Files.Read("1/chg-right.txt"), "old");
}

TEST_F(SyncTest, AFailureLeavesItsTargetAsItWas) {
    PutSmallPair();
    Put("1/read-only.txt", "newer content", kNewer);
    Put("2/read-only.txt", "old");
    const Program varnel(Pair());
    varnel.Compare();
    Files.SetReadOnly("2/read-only.txt", true);
    const auto locked = Locked("2/chg-right.txt");
    Files.Remove("2/only2.txt");
    Files.WriteFile("2/sub", "a file where a folder should be made");
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel),
              Done(MessageKind::Exclamation,
                   "Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
                   "Succeed:   2  Files.\r\nFail:   4  Files."));
    EXPECT_EQ(Files.Read("2/read-only.txt"), "old");
    EXPECT_EQ(Files.Read("2/sub"), "a file where a folder should be made");
    EXPECT_FALSE(Files.Exists("1/only2.txt"));
    EXPECT_EQ(Files.Read("2/new1.txt"), "new in 1");
    EXPECT_EQ(Files.Read("1/chg-left.txt"), "newer content");
    EXPECT_EQ(Files.Names("2"), (Texts{"chg-left.txt", "chg-right.txt", "new1.txt", "read-only.txt",
                                       "same.txt", "sub"}));  // no leftovers

    varnel.WaitForQuiet();
    varnel.Click("LabelNewChgFile");
    varnel.WaitForText("LabelShow", "Sync Failed Files:  4");
    EXPECT_EQ(varnel.Text("sMAC(0)"), "--> Fail -->");
    EXPECT_EQ(varnel.Look("sMAC(0)").Fore, 0x0000FFu);  // red
    EXPECT_EQ(varnel.Text("sMAC(1)"), "<-- Fail <--");
    EXPECT_EQ(varnel.Look("sMAC(4)").Fore, 0xC00000u);
}

TEST_F(SyncTest, ALockedTargetKeepsItsContent) {
    Put("1/a.txt", "newer content", kNewer);
    Put("2/a.txt", "old");
    const Program varnel(Pair());
    {
        const auto locked = Locked("2/a.txt");
        varnel.Compare();
        EXPECT_EQ(varnel.Text("sMAC(0)"), "Replace -->");
        varnel.Click("Command4");
        EXPECT_EQ(Answer(varnel).Kind, MessageKind::Exclamation);
    }
    EXPECT_EQ(Files.Read("2/a.txt"), "old");
    varnel.WaitForQuiet();
    varnel.Compare();
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel).Kind, MessageKind::Information);
    EXPECT_EQ(Files.Read("2/a.txt"), "newer content");
}

}  // namespace

}  // namespace window

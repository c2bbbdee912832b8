// Synchronising: the files on disk, the message, the results in the grid; names of all kinds.
#include "window/window_fixture.h"

namespace window {

namespace {

constexpr const char* kCompleted =
    "Varnel: Synchronization  'New and Modified Files'  completed.      \r\n\r\nSucceed:   ";

class SyncTest : public WindowTest {};

TEST_F(SyncTest, DoubleSyncBringsBothFoldersUpToDate) {
    PutSmallPair();
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel), std::string("information ") + kCompleted + "5  Files.");
    for (const std::string side : {"1", "2"}) {
        for (const auto& [name, content] : {std::pair{"new1.txt", "new in 1"},
                                            {"sub/new2.txt", "another"},
                                            {"only2.txt", "new in 2"},
                                            {"chg-left.txt", "newer content"},
                                            {"chg-right.txt", "newer content"}})
            EXPECT_EQ(Files.Read(side + "/" + name), content) << side << name;
        EXPECT_EQ(Files.Names(side).size(), 6u);
    }
    EXPECT_EQ(varnel.Text("sMAC(3)"), "<-- OK <--");
    varnel.Compare();  // times came along: nothing is left to be done
    EXPECT_EQ(varnel.Text("LabelShow"), "Same Files:  6");
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel),
              "exclamation Varnel: No new / modified file need to be synchronized.    ");
}

TEST_F(SyncTest, AFailureLeavesItsTargetAsItWas) {
    PutSmallPair();
    Put("1/read-only.txt", "newer content", kNewer);
    Put("2/read-only.txt", "old");
    const Program varnel(Pair());
    varnel.Compare();
    Files.SetReadOnly("2/read-only.txt", true);
    Files.Remove("2/only2.txt");
    Files.WriteFile("2/sub", "a file where a folder should be made");
    {
        const auto locked = Locked("2/chg-right.txt");
        varnel.Click("Command4");
        EXPECT_EQ(Answer(varnel),
                  std::string("exclamation ") + kCompleted + "2  Files.\r\nFail:   4  Files.");
    }
    EXPECT_EQ(Files.Read("2/read-only.txt"), "old");
    EXPECT_EQ(Files.Read("2/chg-right.txt"), "old");
    EXPECT_EQ(Files.Read("1/chg-left.txt"), "newer content");
    EXPECT_EQ(Files.Names("2"), (Texts{"chg-left.txt", "chg-right.txt", "new1.txt", "read-only.txt",
                                       "same.txt", "sub"}));  // no leftovers
    varnel.Click("LabelNewChgFile");
    varnel.WaitForText("LabelShow", "Sync Failed Files:  4");
    EXPECT_EQ(varnel.Text("sMAC(0)"), "--> Fail -->");
}

TEST_F(SyncTest, NamesMayBeUnicodeAndPathsLong) {
    std::string deep = "Größe & Maß";
    while (Files.Path(deep).size() < 300) deep += "/a folder with a long name";
    const std::string folder1 = Files.Path(deep), folder2 = Files.Path("日本語 ελληνικά");
    Put(deep + "/inner/été 100%.txt", "from the left");
    Put("日本語 ελληνικά/папка/файл 😀.txt", "from the right");
    const Program varnel(folder1 + " , " + folder2);
    EXPECT_EQ(TextOf(varnel.Look("Combo1").Window), folder1);
    varnel.Compare();
    EXPECT_EQ(varnel.Text("sFile1(0)"), "été 100%.txt");
    varnel.Point("sFile2(1)");
    varnel.WaitForText("TextFileName", folder2 + "\\папка\\файл 😀.txt");
    EXPECT_EQ(TextOf(varnel.Look("TextFileName").Window), folder2 + "\\папка\\файл 😀.txt");
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel), std::string("information ") + kCompleted + "2  Files.");
    EXPECT_EQ(Files.Read(deep + "/папка/файл 😀.txt"), "from the right");
    EXPECT_EQ(Files.Read("日本語 ελληνικά/inner/été 100%.txt"), "from the left");
    varnel.Close();
    const Program again;
    EXPECT_EQ(again.Text("Combo1"), folder1);
    EXPECT_EQ(again.Text("Combo2"), folder2);
}

}  // namespace

}  // namespace window

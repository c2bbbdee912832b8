// Synchronising: the files on disk, names of all kinds, and what the window does meanwhile.
#include "window/window_fixture.h"

namespace window {
namespace {

constexpr const char* kCompleted =
    "Varnel: Synchronization  'New and Modified Files'  completed.      \r\n\r\nSucceed:   ";

class RunTest : public WindowTest {
  protected:
    // The files in 2, each of which must be whole.
    std::size_t Copied() const {
        const auto names = Files.Names("2");
        for (const std::string& name : names) {
            EXPECT_EQ(Files.Read("2/" + name), "content") << name;
            EXPECT_FALSE(name.starts_with(".varnel~")) << "of a copy that was under way";
        }
        return names.size();
    }
};

TEST_F(RunTest, DoubleSyncBringsOverWhatItCanAndLeavesTheRestAsItWas) {
    PutSmallPair();
    Files.WriteFile("1/read-only.txt", "newer");
    Files.WriteFile("2/read-only.txt", "old", fakes::Time("2020-01-02 03:04:05 UTC"));
    const Program varnel(Pair());
    varnel.Compare();
    Files.SetReadOnly("2/read-only.txt", true);
    Files.WriteFile("2/sub", "a file where a folder should be made");
    {
        const platform::win32::Handle held(::CreateFileA(Files.Path("2/chg-right.txt").c_str(),
                                                         GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0,
                                                         nullptr));
        varnel.Click("Command4");
        EXPECT_EQ(Answer(varnel),
                  std::string("exclamation ") + kCompleted + "3  Files.\r\nFail:   3  Files.");
    }
    EXPECT_EQ(Files.Read("2/read-only.txt"), "old");
    EXPECT_EQ(Files.Read("2/chg-right.txt"), "as it was");
    Files.SetReadOnly("2/read-only.txt", false);
    Files.Remove("2/sub");
    varnel.Compare();
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel), std::string("information ") + kCompleted + "3  Files.");
    for (const std::string side : {"1", "2"}) {
        for (const char* name : {"new1.txt", "sub/new2.txt", "only2.txt", "same.txt"})
            EXPECT_EQ(Files.Read(side + "/" + name), "as it was") << side << name;
        for (const char* name : {"chg-left.txt", "chg-right.txt", "read-only.txt"})
            EXPECT_EQ(Files.Read(side + "/" + name), "newer") << side << name;
        EXPECT_EQ(Files.Names(side).size(), 7u) << "no leftovers";
    }
    varnel.Compare();  // times came along: nothing is left to be done
    EXPECT_EQ(varnel.Text("LabelShow"), "Same Files:  7");
}

TEST_F(RunTest, NamesMayBeUnicodeAndPathsLong) {
    std::string deep = "Größe & Maß";
    while (Files.Path(deep).size() < 300) deep += "/a folder with a long name";
    const std::string folder1 = Files.Path(deep), folder2 = Files.Path("日本語 ελληνικά");
    Files.WriteFile(deep + "/inner/été 100%.txt", "from the left");
    Files.WriteFile("日本語 ελληνικά/папка/файл 😀.txt", "from the right");
    {
        const Program varnel(folder1 + " , " + folder2);
        varnel.Compare();
        varnel.Point("sFile2(1)");
        varnel.WaitFor("TextFileName", &Seen::Text, folder2 + "\\папка\\файл 😀.txt");
        varnel.Click("Command4");
        EXPECT_EQ(Answer(varnel), std::string("information ") + kCompleted + "2  Files.");
        EXPECT_EQ(Files.Read(deep + "/папка/файл 😀.txt"), "from the right");
        EXPECT_EQ(Files.Read("日本語 ελληνικά/inner/été 100%.txt"), "from the left");
        EXPECT_EQ(varnel.Close(), 0u);
    }
    const Program again;
    EXPECT_EQ(again.Text("Combo1"), folder1);
    EXPECT_EQ(again.Text("Combo2"), folder2);
}

TEST_F(RunTest, ASyncKeepsTheWindowAliveAndIsStoppedOrClosed) {
    constexpr std::size_t kFiles = 800;
    for (std::size_t i = 0; i < kFiles; ++i) Files.WriteFile("1/" + std::to_string(i), "content");
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("Command5");
    WaitUntil("some copies", [&] { return Files.Names("2").size() > 2; });
    varnel.Click("LabelNewFile");
    varnel.RunMenu("mnuAbout");
    RollWheelAt(varnel.PlaceOf("Picture2"), 1);
    const RECT row = varnel.Look("sFile1(7)").Area;
    MovePointer(MiddleOf(row));
    WaitForColor({row.left, row.top}, kHovered);
    EXPECT_FALSE(::IsHungAppWindow(varnel.Window()));
    EXPECT_TRUE(varnel.Look("Command9").Visible) << "the sync must still run";
    EXPECT_EQ(varnel.Text("sTYPE(0)"), "1.") << "other commands are dropped";
    EXPECT_TRUE(varnel.Text("LabelShow").starts_with("New and Modified Files"));
    varnel.Click("Command9");
    EXPECT_EQ(Answer(varnel), "exclamation Varnel: Synchronization User Canceled.      ");
    const std::size_t copied = Copied();
    EXPECT_LT(copied, kFiles);
    EXPECT_EQ(varnel.Text("LabelAllFile"), "Sync Total ( " + std::to_string(copied) + " ) ");

    varnel.Compare();
    varnel.Click("Command4");
    WaitUntil("some copies", [&] { return Files.Names("2").size() > copied + 2; });
    EXPECT_EQ(varnel.Close(), 0u);
    EXPECT_LT(Copied(), kFiles);
}

}  // namespace
}  // namespace window

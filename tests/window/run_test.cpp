// Synchronising: the files on disk, names of all kinds, and what the window does meanwhile.
#include "window/window_fixture.h"

namespace window {
namespace {

using RunTest = WindowTest;

TEST_F(RunTest, DoubleSyncBringsOverWhatItCanAndLeavesTheRestAsItWas) {
    std::string deep = "/Größe & Maß";
    while (Files.Path(deep).size() < 300) deep += "/a folder with a long name";
    deep += "/файл 😀 100%.txt";
    PutSmallPair();
    Files.WriteFile("1" + deep, "as it was");
    {
        const Program varnel(Pair());
        varnel.Compare();
        varnel.Point("sFile1(2)");
        varnel.WaitFor("TextFileName", Files.Path("1" + deep));
        const platform::win32::Handle held(::CreateFileA(Files.Path("2/chg-right.txt").c_str(),
                                                         GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0,
                                                         nullptr));
        varnel.Click("Command4");
        EXPECT_EQ(Answer(),
                  "Varnel: Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
                  "Succeed:   5  Files.\r\nFail:   1  Files.");
    }
    EXPECT_EQ(Files.Read("1/chg-right.txt"), "newer");
    EXPECT_EQ(Files.Read("2/chg-right.txt"), "as it was");
    for (const std::string side : {"1", "2"}) {
        EXPECT_EQ(Files.Read(side + "/chg-left.txt"), "newer") << side;
        for (const std::string& name : std::vector<std::string>{"/new1.txt", "/sub/new2.txt",
                                                                "/only2.txt", "/same.txt", deep})
            EXPECT_EQ(Files.Read(side + name), "as it was") << side << name;
        EXPECT_EQ(Files.Names(side).size(), 7u) << "no leftovers";
    }
    const Program again;  // on the pair of before
    again.Compare();
    EXPECT_EQ(again.Ask("LabelShow"), "New and Modified Files:  1");  // times came along
}

TEST_F(RunTest, ASyncKeepsTheWindowAliveAndIsStoppedOrClosed) {
    constexpr std::size_t kFiles = 800;
    for (std::size_t i = 0; i < kFiles; ++i) Files.WriteFile("1/" + std::to_string(i), "content");
    std::size_t copied = 0;
    const auto waitForCopies = [&] {
        WaitUntil("copies", [&] { return Files.Names("2").size() > copied + 2; });
    };
    const auto expectWholeCopies = [&] {
        const auto names = Files.Names("2");
        EXPECT_LT(copied = names.size(), kFiles);
        for (const std::string& name : names) EXPECT_EQ(Files.Read("2/" + name), "content");
        EXPECT_FALSE(names.at(0).starts_with(".varnel~")) << "of a copy that was under way";
    };
    const Program varnel(Pair());
    varnel.Compare();
    varnel.Click("Command5");
    waitForCopies();
    const RECT row = varnel.Area("sFile1(7)"), countdown = varnel.Area("lblComparing");
    MovePointer(MiddleOf(row));
    WaitForColor({row.left, row.top}, kHovered);
    const auto line = [&countdown] {  // through the countdown, as the screen has it
        std::vector<COLORREF> colors;
        for (LONG x = countdown.left; x < countdown.right; ++x)
            colors.push_back(ColorAt({x, MiddleOf(countdown).y}));
        return colors;
    };
    WaitUntil("the countdown to go on", [&, before = line()] { return line() != before; });
    varnel.Click("Command9");
    EXPECT_EQ(Answer(), "Varnel: Synchronization User Canceled.      ");
    expectWholeCopies();
    EXPECT_EQ(varnel.Ask("LabelAllFile"), "Sync Total ( " + std::to_string(copied) + " ) ");

    varnel.Compare();
    varnel.Click("Command4");
    waitForCopies();
    EndWindow(varnel.Window(), WM_SYSCOMMAND, SC_CLOSE);
    EXPECT_EQ(varnel.WaitForEnd(), 0u);
    expectWholeCopies();
}

}  // namespace
}  // namespace window

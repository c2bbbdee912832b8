// Names of all kinds, and paths longer than the system's own limit.
#include "window/window_fixture.h"

namespace window {

namespace {

class NamesTest : public WindowTest {};

TEST_F(NamesTest, UnicodeIsShownCopiedAndRemembered) {
    const std::string sides[] = {"Größe & Maß", "日本語 ελληνικά"};
    Put(sides[0] + "/été 100%.txt", "from the left");
    Put(sides[1] + "/папка/файл 😀.txt", "from the right");
    const std::string folder1 = Files.Path(sides[0]), folder2 = Files.Path(sides[1]);
    const Program varnel(folder1 + " , " + folder2);
    EXPECT_EQ(TextOf(varnel.Look("Combo1").Window), folder1);
    EXPECT_EQ(TextOf(varnel.Look("Combo2").Window), folder2);
    varnel.Compare();
    EXPECT_EQ(varnel.Rows(), (Texts{"1.|été 100%.txt|13|" + kOlderText + "|Copy -->|||",
                                    "2.||||<-- Copy|файл 😀.txt|14|" + kOlderText}));
    varnel.Point("sFile2(1)");
    varnel.WaitForText("TextFileName", folder2 + "\\папка\\файл 😀.txt");
    EXPECT_EQ(TextOf(varnel.Look("TextFileName").Window), folder2 + "\\папка\\файл 😀.txt");
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel).Kind, MessageKind::Information);
    EXPECT_EQ(Files.Read(sides[0] + "/папка/файл 😀.txt"), "from the right");
    EXPECT_EQ(Files.Read(sides[1] + "/été 100%.txt"), "from the left");
    EXPECT_TRUE(HistoryValue(0).starts_with(folder1 + "==========" + folder2)) << HistoryValue(0);
    varnel.Close();

    const Program again;
    EXPECT_EQ(again.Text("Combo1"), folder1);
    EXPECT_EQ(again.Text("Combo2"), folder2);
}

TEST_F(NamesTest, PathsOfThreeHundredCharacters) {
    std::string deep = "deep";
    while (Files.Path("1/" + deep).size() < 300) deep += "/a folder with a long name";
    Put("1/" + deep + "/new.txt", "content");
    Put("1/" + deep + "/modified.txt", "newer content", kNewer);
    Put("2/" + deep + "/modified.txt", "old");
    const std::string path = Files.Path("1/" + deep + "/new.txt");
    const Program varnel(Pair());
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  2");
    varnel.Set("CheckShowPath1");
    varnel.WaitForText("sFile1(0)", path);
    for (const auto& [cell, pointedAt] :
         {std::pair{"sMD1(1)", "/modified.txt"}, {"sMD1(0)", "/new.txt"}}) {
        varnel.Point(cell);
        varnel.WaitForText("TextFileName", Files.Path("1/" + deep + pointedAt));
    }
    varnel.Click("Command4");
    EXPECT_EQ(Answer(varnel).Text,
              "Synchronization  'New and Modified Files'  completed.      \r\n\r\n"
              "Succeed:   2  Files.");
    EXPECT_EQ(Files.Read("2/" + deep + "/new.txt"), "content");
    EXPECT_EQ(Files.Read("2/" + deep + "/modified.txt"), "newer content");
    EXPECT_EQ(Files.Names("2/" + deep), (Texts{"modified.txt", "new.txt"}));
}

TEST_F(NamesTest, TheFoldersThemselvesMayBeLong) {
    std::string deep = "deep";
    while (Files.Path(deep).size() < 300) deep += "/a folder with a long name";
    Put(deep + "/new.txt", "content");
    const Program varnel(Files.Path(deep) + " , " + Folder2());
    varnel.Compare();
    varnel.Click("Command5");
    EXPECT_EQ(Answer(varnel).Kind, MessageKind::Information);
    EXPECT_EQ(Files.Read("2/new.txt"), "content");
}

}  // namespace

}  // namespace window

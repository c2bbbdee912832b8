// What can be wrong in the folder boxes: each time the message that belongs to it, and no more.
#include "window/window_fixture.h"

namespace window {

namespace {

class BadInputTest : public WindowTest {};

ShownMessage Complaint(const std::string& text) {
    return {MessageKind::Critical, "Varnel", text + "    "};
}

TEST_F(BadInputTest, IsAnsweredByAMessage) {
    PutSmallPair();
    const std::string there = Folder1();
    const std::string noFolder1 = "Please enter 'Folder 1' !";
    const std::string noFolder2 = "Please enter 'Folder 2' !";
    const std::string missing1 = "Folder 1 did not exist!";
    const std::string missing2 = "Folder 2 did not exist!";
    const struct {
        std::string Folder1;
        std::string Folder2;
        std::string Message;
    } cases[] = {
        {"", "", noFolder1},
        {"", there, noFolder1},
        {"   ", there, noFolder1},
        {there, "", noFolder2},
        {there, "  ", noFolder2},
        {there, "  " + there + " ", "'Folder 1' and 'Folder 2' are same folder !"},
        {"\"" + Folder2() + "\"", there, missing1},
        {"Q:\\", there, missing1},
        {there, "Q:", missing2},
        {"Q:\\folder", there, missing1},
        {there, Files.Path("2/only2.txt"), missing2},
        {"varnel-no-such-folder", there, missing1},
        {there, "..\\varnel-no-such-folder\\.", missing2},
        {"\\\\varnel-no-such-server\\share", there, missing1},
        {there, "*", missing2},
        {there + "\\*.*", there, missing1},
        {there, "C:\\a|b<>?\"", missing2},
        {std::string(2000, 'x'), there, missing1},
        {there, "C:\\" + std::string(2000, 'y'), missing2},
        {"C:" + std::string(1000, '\\') + "z", there, missing1},
    };
    const Texts before1 = Files.Names("1"), before2 = Files.Names("2");
    const Program varnel;
    for (const auto& [folder1, folder2, message] : cases) {
        SCOPED_TRACE(folder1.substr(0, 80) + " , " + folder2.substr(0, 80));
        varnel.Paste("Combo1", folder1);
        varnel.Paste("Combo2", folder2);
        varnel.WaitForText("Combo1", folder1);
        varnel.WaitForText("Combo2", folder2);
        varnel.Click("Command3");
        EXPECT_EQ(Answer(varnel), Complaint(message));
        varnel.WaitForQuiet();
        EXPECT_EQ(varnel.Text("Command3"), "Compare");
        EXPECT_EQ(varnel.Text("LabelShow"), "");
    }
    EXPECT_EQ(HistoryValue(0), "");
    EXPECT_EQ(Files.Names("1"), before1);
    EXPECT_EQ(Files.Names("2"), before2);

    varnel.Paste("Combo1", "  " + Folder1() + " ");  // blanks around a path do not matter
    varnel.Paste("Combo2", Folder2() + "\\");
    varnel.WaitForText("Combo2", Folder2() + "\\");
    varnel.Compare();
    EXPECT_EQ(varnel.Text("LabelShow"), "New and Modified Files:  5");
}

TEST_F(BadInputTest, FoldersThatVanishAfterTheComparison) {
    PutSmallPair();
    Files.Remove("1/sub/new2.txt");
    const Program varnel(Pair());
    varnel.Compare();
    for (const char* name : {"2/only2.txt", "2/chg-right.txt", "2/chg-left.txt", "2/same.txt"})
        Files.Remove(name);
    ASSERT_TRUE(::RemoveDirectoryA(Folder2().c_str()));
    varnel.Click("Command4");
    const ShownMessage message = Answer(varnel);
    EXPECT_TRUE(message.Text.starts_with("Synchronization  'New and Modified Files'  completed."))
        << message;
    varnel.WaitForQuiet();
    EXPECT_EQ(Files.Read("1/chg-left.txt"), "old");
    EXPECT_EQ(Files.Read("1/new1.txt"), "new in 1");
}

}  // namespace

}  // namespace window

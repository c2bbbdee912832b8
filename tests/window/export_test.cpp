// Reports through the real save dialog, and text files opened in Notepad.
#include "window/window_fixture.h"

namespace window {

namespace {

class ExportTest : public WindowTest {
  protected:
    // Exports the same files and returns the name that was proposed.
    static std::string Export(const Program& varnel, const std::string& path) {
        varnel.RunMenu("mnuExportSame");
        return AnswerFileName(varnel, "Export file name to a text file", path);
    }
};

TEST_F(ExportTest, WritesTheReportAndAsksBeforeItOverwrites) {
    const std::string question = "exclamation Information: The same filename exist, overwrite it?";
    const std::string saved = "information File Saved: Same files name has export to file: ";
    PutSmallPair();
    const Program varnel(Pair());
    varnel.RunMenu("mnuExportSame");
    EXPECT_EQ(Answer(varnel), "information Varnel: No data to be export.     ");
    varnel.Compare();
    EXPECT_EQ(Export(varnel, Files.Path("größe")), "Same Files");
    EXPECT_EQ(Answer(varnel), saved + Files.Path("größe.txt"));
    const auto report = Files.Read("größe.txt");
    EXPECT_EQ(report, "Same files in folder 1 / folder 2 :  \r\n \r\n" + Folder1() +
                          "\\same.txt\r\n \r\n     1 same files.\r\n \r\n");

    Files.WriteFile("report.txt", "what was there");
    Export(varnel, "");
    Export(varnel, Files.Path("report.txt"));
    EXPECT_EQ(Answer(varnel, IDNO), question);
    {
        const auto held = Locked("report.txt");
        Export(varnel, Files.Path("report.txt"));
        EXPECT_EQ(Answer(varnel, IDYES), question);
        varnel.RunMenu("mnuAbout");  // "File Saved" would stand before it
        EXPECT_TRUE(Answer(varnel).starts_with("information About Varnel"));
    }
    EXPECT_EQ(Files.Read("report.txt"), "what was there");
    Files.SetReadOnly("report.txt", true);
    Export(varnel, Files.Path("report.txt"));
    EXPECT_EQ(Answer(varnel, IDYES), question);
    EXPECT_EQ(Answer(varnel), saved + Files.Path("report.txt"));
    EXPECT_EQ(Files.Read("report.txt"), report);
}

TEST_F(ExportTest, OpensATextFileInNotepad) {
    Files.WriteFile("a report.txt", "some text");
    const Program varnel;
    varnel.RunMenu("mnuOpen");
    AnswerFileName(varnel, "Select a text file", Files.Path("a report.txt"));
    CloseWindowOf(WaitForWindow(0, "Notepad", "a report"));
}

}  // namespace

}  // namespace window

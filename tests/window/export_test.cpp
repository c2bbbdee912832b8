// Reports through the real save dialog, and text files opened in Notepad.
#include <algorithm>

#include "window/window_fixture.h"

namespace window {

namespace {

const std::string kRule(148, '=');

class ExportTest : public WindowTest {
  protected:
    void SetUp() override {
        WindowTest::SetUp();
        if (!IsSkipped()) PutSmallPair();
    }
    std::string Lines(const Texts& lines) const {
        std::string text;
        for (const std::string& line : lines) text += line + "\r\n";
        return text;
    }
    Texts NewReport() const {
        return {"New files in folder 1 :  ",
                " ",
                Folder1() + "\\new1.txt",
                Folder1() + "\\sub\\new2.txt",
                " ",
                "     2 new files in folder 1.",
                " ",
                kRule,
                " ",
                "New files in folder 2 :  ",
                " ",
                Folder2() + "\\only2.txt",
                " ",
                "     1 new files in folder 2.",
                " "};
    }
    Texts ModifiedReport() const {
        return {"Modified files in folder 1 :  ",
                " ",
                Folder1() + "\\chg-left.txt",
                Folder1() + "\\chg-right.txt",
                " ",
                "     2 modified files in folder 1.",
                " ",
                kRule,
                " ",
                "Modified files in folder 2 :  ",
                " ",
                Folder2() + "\\chg-left.txt",
                Folder2() + "\\chg-right.txt",
                " ",
                "     2 modified files in folder 2.",
                " "};
    }
    Texts SameReport() const {
        return {"Same files in folder 1 / folder 2 :  ",
                " ",
                Folder1() + "\\same.txt",
                " ",
                "     1 same files.",
                " "};
    }
    static FileNameDialog Ask(const Program& varnel, const char* command) {
        varnel.RunMenu(command);
        return FileNameDialog(varnel, "Export file name to a text file");
    }
    static ShownMessage Saved(const char* kind, const std::string& path) {
        return {MessageKind::Information, "File Saved",
                std::string(kind) + " files name has export to file: " + path};
    }
    const ShownMessage overwriteQuestion{MessageKind::Exclamation, "Information",
                                         "The same filename exist, overwrite it?"};
};

TEST_F(ExportTest, WritesEachReport) {
    const Program varnel(Pair());
    varnel.Compare();
    Texts both = NewReport();
    both.insert(both.end(), {" ", kRule, " "});
    for (const std::string& line : ModifiedReport()) both.push_back(line);
    const struct {
        const char* Command;
        const char* Kind;
        Texts Report;
    } exports[] = {
        {"mnuExportNew", "New", NewReport()},
        {"mnuExportModify", "Modified", ModifiedReport()},
        {"mnuExportNewModify", "New and Modified", both},
        {"mnuExportSame", "Same", SameReport()},
    };
    for (const auto& [command, kind, report] : exports) {
        SCOPED_TRACE(command);
        const FileNameDialog dialog = Ask(varnel, command);
        EXPECT_EQ(dialog.ProposedName(), std::string(kind) + " Files");
        const std::string name = std::string(kind) + " größe.txt";
        dialog.Choose(Files.Path(name));
        EXPECT_EQ(Answer(varnel), Saved(kind, Files.Path(name)));
        EXPECT_EQ(Files.Read(name), Lines(report));
    }
}

TEST_F(ExportTest, TheNameGetsItsExtension) {
    const Program varnel(Pair());
    varnel.Compare();
    Ask(varnel, "mnuExportSame").Choose(Files.Path("report"));
    EXPECT_EQ(Answer(varnel), Saved("Same", Files.Path("report.txt")));
    EXPECT_EQ(Files.Read("report.txt"), Lines(SameReport()));
}

TEST_F(ExportTest, AsksBeforeItOverwrites) {
    Files.WriteFile("report.txt", "what was there");
    const Program varnel(Pair());
    varnel.Compare();
    Ask(varnel, "mnuExportSame").Choose(Files.Path("report.txt"));
    EXPECT_EQ(Answer(varnel, IDNO), overwriteQuestion);
    varnel.WaitForQuiet();
    EXPECT_EQ(Files.Read("report.txt"), "what was there");

    Files.SetReadOnly("report.txt", true);
    Ask(varnel, "mnuExportSame").Choose(Files.Path("report.txt"));
    EXPECT_EQ(Answer(varnel, IDYES), overwriteQuestion);
    EXPECT_EQ(Answer(varnel), Saved("Same", Files.Path("report.txt")));
    EXPECT_EQ(Files.Read("report.txt"), Lines(SameReport()));
}

TEST_F(ExportTest, ACancelledDialogChangesNothing) {
    const Program varnel(Pair());
    varnel.Compare();
    const Texts before = Files.Names();
    Ask(varnel, "mnuExportNew").Cancel();
    varnel.WaitForQuiet();
    varnel.RunMenu("mnuAbout");  // no message of the export stands before it
    EXPECT_EQ(Answer(varnel).Title, "About Varnel");
    EXPECT_EQ(Files.Names(), before);
}

TEST_F(ExportTest, SaysWhenThereIsNothing) {
    const Program varnel(Pair());
    for (const char* command :
         {"mnuExportNew", "mnuExportModify", "mnuExportNewModify", "mnuExportSame"}) {
        varnel.RunMenu(command);
        EXPECT_EQ(Answer(varnel),
                  (ShownMessage{MessageKind::Information, "Varnel", "No data to be export.     "}));
    }
}

TEST_F(ExportTest, AFileThatCannotBeWrittenIsLeftAlone) {
    Files.WriteFile("held.txt", "held");
    const Program varnel(Pair());
    varnel.Compare();
    {
        const platform::win32::Handle held(::CreateFileA(
            Files.Path("held.txt").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(held.IsOpen());
        Ask(varnel, "mnuExportNew").Choose(Files.Path("held.txt"));
        EXPECT_EQ(Answer(varnel, IDYES), overwriteQuestion);
        varnel.WaitForQuiet();
        varnel.RunMenu("mnuAbout");  // "File Saved" would stand before it
        EXPECT_EQ(Answer(varnel).Title, "About Varnel");
    }
    EXPECT_EQ(Files.Read("held.txt"), "held");
}

TEST_F(ExportTest, OpensATextFileInNotepad) {
    Files.WriteFile("a report.txt", "some text");
    const Program varnel;
    varnel.RunMenu("mnuOpen");
    FileNameDialog(varnel, "Select a text file").Choose(Files.Path("a report.txt"));
    HWND notepad = nullptr;
    const auto findNotepad = [&] {
        const std::vector<HWND> windows = TopWindows(0);
        const auto found = std::find_if(windows.begin(), windows.end(), [](HWND window) {
            return ClassOf(window) == "Notepad" &&
                   TextOf(window).find("a report") != std::string::npos;
        });
        return (notepad = found == windows.end() ? nullptr : *found) != nullptr;
    };
    WaitUntil("Notepad", findNotepad);
    const HWND text = ::FindWindowExA(notepad, nullptr, nullptr, nullptr);
    WaitUntil("the text in Notepad", [&] { return TextOf(text) == "some text"; });
    ::PostMessageW(notepad, WM_CLOSE, 0, 0);
    WaitUntil("Notepad to close", [&] { return !::IsWindow(notepad); });
}

}  // namespace

}  // namespace window

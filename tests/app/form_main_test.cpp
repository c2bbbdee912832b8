#include "app/form_main.h"

#include <string>

#include <gtest/gtest.h>

#include "fakes/main_window.h"

namespace app {
namespace {

using fakes::Texts;

class FormMainTest : public fakes::MainWindowTest {};

// A line of the companion's job file.
std::string Job(const std::string& source, const std::string& destination,
                const std::string& kind) {
    return source + ',' + destination + std::string(11, ',') + " j " + std::string(10, ',') + kind;
}

TEST_F(FormMainTest, TheCompanionsGoodJobsAreOfferedOnceBehindTheHistory) {
    form.History().WriteProfileValue("/listed==========/before", 0);
    const std::string slash(1, platform::Separator), backup = slash + "Backup_ j ";
    const std::string lines[] = {
        Job("/listed", "/before", "9"),
        "  " + Job("*.*/a*.*a/*.*", "/1*.*", " 9.0 ") + "  ",
        Job("/b", "/2", "1,more,fields"),
        Job("/c", "/3" + slash, "9 lives"),
        "/d,/4" + std::string(20, ','),  // a field is missing
        Job("*.*", "/5", "9"),
        Job("/e", "", "1"),
        Job(std::string("/f\0f", 4), "/6", "9"),
        Job("/g", "/7", "9,") + std::string(70'000, 'x'),
        std::string(100'000'000, '\0'),
        Job("/h", "/8", ""),
    };
    std::string content;
    for (const std::string& line : lines) content += line + "\r\n";
    const fakes::TempFolder documents, program;
    documents.WriteFile("Q7DB.qdb", content);
    program.WriteFile("Q7DB.qdb", Job("/i", "/9", "9"));
    for (const auto* folder : {&documents, &program})
        Put(fakes::FakeFiles::NameOf(folder->Path("Q7DB.qdb")));
    shell.Documents = documents.Path();
    shell.Program = program.Path();
    form.Load("");
    EXPECT_EQ(form.Combo1.Entries(), (Texts{"/listed", "/aa/", "/b", "/c", "/h", "/i"}));
    EXPECT_EQ(form.Combo2.Entries(),
              (Texts{"/before", "/1*.*", "/2" + backup, "/3" + backup, "/8" + backup, "/9"}));
}

TEST_F(FormMainTest, TheCommandLineGoesBeforeTheHistory) {
    form.History().WriteProfileValue("/h1==========/h2==========/txt==========-1", 0);
    const std::pair<const char*, Texts> cases[] = {
        {" \"/a x\",  /b  ", {"/a x", "/b", ""}},
        {"\"\",/b", {"/h1", "/h2", "/txt"}},
        {"/a,/b,", {"/h1", "/h2", "/txt"}},
    };
    for (const auto& [commandLine, start] : cases) {
        form.Load(commandLine);
        EXPECT_EQ((Texts{form.Combo1.Text(), form.Combo2.Text(), form.Filter.FilterExtensions}),
                  start);
        EXPECT_EQ(form.Combo1.Entries(), Texts{"/h1"});
    }
}

TEST_F(FormMainTest, AFolderIsBrowsedForShownUnderThePointerAndOpened) {
    dialogs.FolderAnswers = {"/picked 1", "/picked 2"};
    ClickMenu("mnuFolder1");
    ClickMenu("mnuFolder2");
    form.CommandBrowse1.Click();  // cancelled
    form.ImageOpenFolder1.PointerMove({});
    form.CmdOpenFolder1.Click();
    ClickMenu("mnuOpenFolder2");
    EXPECT_EQ(shell.OpenedFolders,
              (Texts{platform::WithSeparator("/picked 1"), platform::WithSeparator("/picked 2")}));
    form.Window.OnPointerMove({});
    form.Combo2.Edit("  ");
    form.ImageOpenFolder2.PointerMove({});
    EXPECT_FALSE(form.CmdOpenFolder1.Visible() || form.CmdOpenFolder2.Visible());
}

TEST_F(FormMainTest, MenusCompareAndSynchroniseTheWayTheySay) {
    for (const char* name : {"1/a", "2/b"}) Put(name);
    for (const char* menu : {"mnuCompare", "mnuRightSync", "mnuCompare", "mnuLeftSync"})
        ClickMenu(menu);
    EXPECT_EQ(files.Copies, (Texts{"2/b > 1/b", "1/a > 2/a"}));
}

}  // namespace
}  // namespace app

// The menu tree of the main window.
#include "app/form_main.h"

namespace app {

using platform::MenuItem;

std::vector<MenuItem> FormMain::MenuTree() {
    const auto separator = [](const char* name) { return MenuItem{name, "-", {}, {}}; };
    const auto click = [](platform::Control& control) {
        return [&control] {
            if (control.OnClick) control.OnClick();
        };
    };
    const auto exportList = [this](void (reports::ExportLists::*command)()) {
        return [this, command] { RunLong([this, command] { (exports_.*command)(); }); };
    };
    using reports::ExportLists;
    return {
        {"mnuFile",
         "&File",
         {},
         {separator("mnu001"),
          {"mnuExportNew",
           "&Export New Files to a Text File",
           exportList(&ExportLists::mnuExportNew),
           {}},
          {"mnuExportModify",
           "&Export Modifies Files to a Text File",
           exportList(&ExportLists::mnuExportModify),
           {}},
          {"mnuExportNewModify",
           "&Export New and Modified Files to a Text File",
           exportList(&ExportLists::mnuExportNewModify),
           {}},
          {"mnuExportSame",
           "&Export Same Files to a Text File",
           exportList(&ExportLists::mnuExportSame),
           {}},
          separator("mnu807"),
          {"mnuOpen", "Open Text File", [this] { exports_.mnuOpen(); }, {}},
          separator("mnu002"),
          {"mnuExit", "E&xit", [this] { Exit(); }, {}}}},
        {"mnuProfile",
         "&Profile",
         {},
         {separator("mnu006"),
          {"mnuFolder1", "Browse Folder 1", click(CommandBrowse1), {}},
          {"mnuFolder2", "Browse Folder 2", click(CommandBrowse2), {}},
          separator("mnu007"),
          {"mnuOpenFolder1", "Open Folder 1", click(CmdOpenFolder1), {}},
          {"mnuOpenFolder2", "Open Folder 2", click(CmdOpenFolder2), {}},
          separator("mnu010"),
          {"mnuClearProfile", "Clear Profiles History", [this] { profiles_.ClearProfiles(); }, {}},
          separator("mnu008")}},
        {"mnuOperate",
         "&Operate",
         {},
         {separator("mnu003"),
          {"mnuCompare", "&Compare", click(Command3), {}},
          separator("mnu004"),
          {"mnuDoubleSync", "&Double Synchronize - Folder 1 <-> Folder 2", click(Command4), {}},
          {"mnuLeftSync", "&Left Synchronize - Folder 1 -> Folder 2", click(Command5), {}},
          {"mnuRightSync", "&Right Synchronize - Folder 1 <- Folder 2", click(Command6), {}},
          separator("mnu005")}},
        {"mnuView",
         "&View",
         {},
         {separator("mnu011"),
          {"mnuNewFile", "&New Files", click(LabelNewFile), {}},
          {"mnuChangedFile", "&Changed Files", click(LabelChgFile), {}},
          {"mnuAllFile", "&All Files", click(LabelAllFile), {}},
          separator("mnu012")}},
        {"mnuHelp",
         "&Help",
         {},
         {separator("mnu013"),
          {"mnuContents", "&How to use ?", [this] { ShowHelp(); }, {}},
          separator("mnu014"),
          {"mnuAbout", "About", [this] { ShowAbout(); }, {}}}},
    };
}

}  // namespace app

#include "sync/transfer_workers.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/fake_files.h"
#include "fakes/items.h"
#include "fakes/temp_folder.h"
#include "platform/headless/headless_host.h"
#include "platform/paths.h"

namespace syncing {
namespace {

using compare::Category;
using compare::SyncMode;
using Texts = std::vector<std::string>;

const Texts kCodes{"0", "11", "12", "21", "22", "40", "31", "32"};

// A window's worth of a sync, with a row of every code in each list; a row's file bears its code.
struct Workers {
    Workers() {
        for (const std::string& name : kCodes) {
            for (const std::string folder : {"1/", "2/"}) files.AddFile(folder + name, {1, 0}, 1);
            compare::CompareItem row =
                fakes::Item(roots, name.c_str(), static_cast<std::int16_t>(std::stoi(name)));
            row.Time1 = row.Time2 = {1, 0};
            row.Bytes1 = row.Bytes2 = 1;
            table.SameList.push_back(row);
        }
        table.NewList = table.ChgList = table.NewChgList = table.SameList;
    }

    const std::string root1 = platform::WithSeparator(fakes::FakeFiles::Path("1"));
    const std::string root2 = platform::WithSeparator(fakes::FakeFiles::Path("2"));
    const compare::FolderPair roots{nullptr, root1, root2};
    fakes::FakeFiles files;
    platform::headless::Host host;
    rules::FileFilter filter;
    compare::CompareTable table;
    SyncPanel panel;
    platform::Label lblComparing;
    platform::Label LabelAllFile;
    Texts handled;
    TransferWorkers workers{{table, host, files, filter, panel, lblComparing, LabelAllFile,
                             [this](const compare::CompareItem& item, bool copied) {
                                 EXPECT_TRUE(copied);
                                 handled.push_back(fakes::Rows({item}).front());
                             }}};
};

TEST(TransferWorkers, EachActsOnItsCodesAloneAndCountsThemDown) {
    const struct {
        SyncMode Mode;
        Category List;
        Texts Codes;
    } cases[] = {
        {SyncMode::Double, Category::New, {"11", "12"}},
        {SyncMode::Left, Category::New, {"11"}},
        {SyncMode::Right, Category::New, {"12"}},
        {SyncMode::Double, Category::Chg, {"21", "22"}},
        {SyncMode::Left, Category::Chg, {"21"}},
        {SyncMode::Right, Category::Chg, {"22"}},
        {SyncMode::Double, Category::NewChg, {"11", "12", "21", "22"}},
        {SyncMode::Left, Category::NewChg, {"11", "21"}},
        {SyncMode::Right, Category::NewChg, {"12", "22"}},
        {SyncMode::Double, Category::Same, {"21", "22"}},
        {SyncMode::Left, Category::Same, {"21"}},
        {SyncMode::Right, Category::Same, {"22"}},
    };
    for (const auto& worker : cases) {
        SCOPED_TRACE(static_cast<int>(worker.Mode) * 10 + static_cast<int>(worker.List));
        Workers run;
        const int rows = static_cast<int>(worker.Codes.size());
        run.table.PendingCount(worker.Mode, worker.List) = rows;
        run.table.StopRequested = true;  // of a command before
        Texts captions;
        run.host.OnYield = [&](long long) {
            if (captions.empty() || captions.back() != run.lblComparing.Caption())
                captions.push_back(run.lblComparing.Caption());
            EXPECT_TRUE(run.lblComparing.Visible() && !run.LabelAllFile.Visible());
        };
        run.workers.Run(worker.Mode, worker.List, run.root1, run.root2);

        Texts copies, results, countdown{"Sync ..."};
        for (const std::string& code : worker.Codes) {
            const bool right = code[1] == '1';
            copies.push_back((right ? "1/" : "2/") + code + " > " + (right ? "2/" : "1/") + code);
            results.push_back(code + ' ' + code);
            countdown.push_back(std::to_string(rows - static_cast<int>(copies.size())));
        }
        EXPECT_EQ(run.files.Copies, copies);
        EXPECT_EQ(run.handled, results);
        EXPECT_EQ(run.table.PendingCount(worker.Mode, worker.List), 0);
        EXPECT_EQ(captions, countdown);
        EXPECT_EQ(run.lblComparing.Caption(), "OK");
        EXPECT_TRUE(!run.lblComparing.Visible() && run.LabelAllFile.Visible());
    }
}

}  // namespace
}  // namespace syncing

#include "sync/transfer_workers.h"

#include <cstdint>
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

constexpr SyncMode kModes[] = {SyncMode::Left, SyncMode::Right, SyncMode::Double};
constexpr Category kCategories[] = {Category::Chg, Category::New, Category::NewChg, Category::Same};

// One row of every code in all lists; the file of a row is named after its code.
class TransferWorkersTest : public testing::Test {
  protected:
    TransferWorkersTest() {
        const char* names[] = {"0", "11", "12", "21", "22", "40", "31", "32"};
        for (const char* name : names) {
            for (const char* folder : {"1/", "2/"})
                files.AddFile(std::string(folder) + name, fakes::Time("2020-01-02 03:04:05 UTC"),
                              1);
            const auto code = static_cast<std::int16_t>(std::stoi(name));
            table.SameList.push_back(fakes::Item(roots, name, code));
        }
        table.NewList = table.ChgList = table.NewChgList = table.SameList;
        for (const SyncMode mode : kModes)
            for (const Category category : kCategories) table.PendingCount(mode, category) = 10;
    }
    void Run(SyncMode mode, Category category) { workers.Run(mode, category, root1, root2); }

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
    TransferWorkers workers{{table, host, files, filter, panel, lblComparing, LabelAllFile}};
};

const std::string k11 = "1/11 > 2/11";
const std::string k12 = "2/12 > 1/12";
const std::string k21 = "1/21 > 2/21";
const std::string k22 = "2/22 > 1/22";

struct Worker {
    SyncMode Mode;
    Category List;
    Texts Copies;
};
const Worker kWorkers[] = {
    {SyncMode::Double, Category::New, {k11, k12}},
    {SyncMode::Left, Category::New, {k11}},
    {SyncMode::Right, Category::New, {k12}},
    {SyncMode::Double, Category::Chg, {k21, k22}},
    {SyncMode::Left, Category::Chg, {k21}},
    {SyncMode::Right, Category::Chg, {k22}},
    {SyncMode::Double, Category::NewChg, {k11, k12, k21, k22}},
    {SyncMode::Left, Category::NewChg, {k11, k21}},
    {SyncMode::Right, Category::NewChg, {k12, k22}},
    {SyncMode::Double, Category::Same, {k21, k22}},
    {SyncMode::Left, Category::Same, {k21}},
    {SyncMode::Right, Category::Same, {k22}},
};

TEST_F(TransferWorkersTest, EachActsOnItsCodesAloneAndCountsThemDown) {
    for (const Worker& worker : kWorkers) {
        SCOPED_TRACE(static_cast<int>(worker.Mode) * 10 + static_cast<int>(worker.List));
        files.Copies.clear();
        table.PendingCount(worker.Mode, worker.List) = 10;
        Run(worker.Mode, worker.List);
        EXPECT_EQ(files.Copies, worker.Copies);
        EXPECT_EQ(table.PendingCount(worker.Mode, worker.List),
                  10 - static_cast<int>(worker.Copies.size()));
        table.PendingCount(worker.Mode, worker.List) = 10;
        for (const SyncMode mode : kModes)
            for (const Category category : kCategories)
                EXPECT_EQ(table.PendingCount(mode, category), 10);
    }
}

TEST_F(TransferWorkersTest, WhatIsShownMeanwhileAndAfterwards) {
    platform::Button* const stops[] = {&panel.Command9, &panel.Command8, &panel.Command10};
    for (const SyncMode mode : kModes) {
        for (platform::Button* stop : stops) stop->SetVisible(false);
        table.PendingCount(mode, Category::NewChg) = mode == SyncMode::Double ? 4 : 2;
        table.StopRequested = true;  // of a command before
        Texts captions;
        host.OnYield = [&](long long) {
            for (const platform::Button* button :
                 {&panel.Command4, &panel.Command5, &panel.Command6})
                EXPECT_FALSE(button->Visible());
            for (const platform::Button* stop : stops)
                EXPECT_EQ(stop->Visible(), stop == &panel.StopButton(mode));
            EXPECT_TRUE(lblComparing.Visible() && !LabelAllFile.Visible());
            if (captions.empty() || captions.back() != lblComparing.Caption())
                captions.push_back(lblComparing.Caption());
        };
        Run(mode, Category::NewChg);
        EXPECT_EQ(captions, mode == SyncMode::Double ? (Texts{"Sync ...", "3", "2", "1", "0"})
                                                     : (Texts{"Sync ...", "1", "0"}));
        EXPECT_EQ(lblComparing.Caption(), "OK");
        EXPECT_TRUE(!lblComparing.Visible() && LabelAllFile.Visible());
        EXPECT_TRUE(panel.StopButton(mode).Visible());
    }
}

TEST_F(TransferWorkersTest, AStopEndsTheWorkerBeforeTheNextRow) {
    host.OnYield = [this](long long) {
        if (lblComparing.Caption() == "8") table.StopRequested = true;
    };
    Run(SyncMode::Double, Category::NewChg);
    EXPECT_EQ(files.Copies, (Texts{k11, k12}));
    EXPECT_EQ(table.PendingCount(SyncMode::Double, Category::NewChg), 8);
    EXPECT_EQ(lblComparing.Caption(), "OK");
    EXPECT_TRUE(LabelAllFile.Visible());
}

TEST_F(TransferWorkersTest, ANewFileIsTriedTwiceAReplacementOnce) {
    files.RefusesCopy = [](const std::string&, const std::string&) { return true; };
    Run(SyncMode::Double, Category::NewChg);
    EXPECT_EQ(files.Copies, (Texts{k11, k11, k12, k12, k21, k22}));
}

TEST_F(TransferWorkersTest, AFilteredFileCountsDownUncopied) {
    filter = {"/txt", true};
    Run(SyncMode::Double, Category::NewChg);
    EXPECT_TRUE(files.Copies.empty());
    EXPECT_EQ(table.PendingCount(SyncMode::Double, Category::NewChg), 6);
}

}  // namespace
}  // namespace syncing

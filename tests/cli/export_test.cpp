// `export`: the four reports byte for byte, and when a file is written or left alone.
#include <filesystem>

#include "cli/cli_fixture.h"

namespace cli {
namespace {

class Export : public CliTest {
  protected:
    Ended OnPairTo(const Texts& before, const std::string& file) const {
        Texts arguments = {"export"};
        arguments.insert(arguments.end(), before.begin(), before.end());
        for (const std::string& argument : {One(), Two(), file}) arguments.push_back(argument);
        return Cli(arguments);
    }

    // One section of a report: its head, its paths, its count.
    static std::string Section(const std::string& head, const Texts& paths,
                               const std::string& count) {
        std::string text = head + " :  \r\n \r\n";
        for (const std::string& path : paths) text += path + "\r\n";
        return text + " \r\n     " + std::to_string(paths.size()) + " " + count + ".\r\n \r\n";
    }
    std::string NewReport() const {
        return Section("New files in folder 1", {One() + "/left.txt"}, "new files in folder 1") +
               kRule +
               Section("New files in folder 2", {Two() + "/sub/right.txt"},
                       "new files in folder 2");
    }
    std::string ModifiedReport() const {
        return Section("Modified files in folder 1", {One() + "/changed.txt"},
                       "modified files in folder 1") +
               kRule +
               Section("Modified files in folder 2", {Two() + "/changed.txt"},
                       "modified files in folder 2");
    }

    static inline const std::string kRule = std::string(148, '=') + "\r\n \r\n";
};

TEST_F(Export, EveryKindHasItsReport) {
    MakeOneOfEach();
    const struct {
        std::string Kind, Report;
    } cases[] = {
        {"new", NewReport()},
        {"modified", ModifiedReport()},
        {"new-modified", NewReport() + " \r\n" + kRule + ModifiedReport()},
        {"same", Section("Same files in folder 1 / folder 2", {One() + "/same.txt"}, "same files")},
    };
    for (const auto& test : cases) {
        const Ended run = OnPairTo({test.Kind}, Path(test.Kind + ".txt"));
        EXPECT_EQ(run.Status, 0) << test.Kind << run.Error;
        EXPECT_EQ(run.Output, "") << test.Kind;
        EXPECT_EQ(Content(test.Kind + ".txt"), test.Report) << test.Kind;
    }
}

TEST_F(Export, AReportOfOneSideCountsNoneOnTheOther) {
    File("two/only", "");
    ASSERT_EQ(OnPairTo({"new-modified"}, "report").Status, 0);
    EXPECT_EQ(Content("report"),
              Section("New files in folder 1", {}, "new files in folder 1") + kRule +
                  Section("New files in folder 2", {Two() + "/only"}, "new files in folder 2") +
                  " \r\n" + kRule +
                  Section("Modified files in folder 1", {}, "modified files in folder 1") + kRule +
                  Section("Modified files in folder 2", {}, "modified files in folder 2"));
}

TEST_F(Export, NothingToExportIsSaidAndWritesNothing) {
    MakeOneOfEach();
    for (const std::string kind : {"new", "modified", "new-modified", "same"}) {
        File("kept", "kept");
        for (const std::string file : {"kept", "absent"}) {
            const Ended run = OnPairTo({kind, "--only=nosuch", "--force"}, file);
            EXPECT_EQ(run.Status, 1) << kind;
            EXPECT_EQ(Lines(run.Error), (Texts{"No data to be export."})) << kind;
        }
        EXPECT_EQ(Content("kept"), "kept") << kind;
        EXPECT_FALSE(Exists("absent")) << kind;
    }
}

TEST_F(Export, AnExistingFileIsOverwrittenByForceAlone) {
    MakeOneOfEach();
    File("report", "old content that is longer than the new report " + std::string(4096, '.'));
    const std::string old = Content("report");
    const Ended refused = OnPairTo({"new"}, Path("report"));
    EXPECT_EQ(refused.Status, 1);
    EXPECT_EQ(Lines(refused.Error).size(), 1u) << refused.Error;
    EXPECT_EQ(Content("report"), old);

    std::filesystem::permissions(Path("report"), std::filesystem::perms(0400));
    EXPECT_EQ(OnPairTo({"--force", "new"}, Path("report")).Status, 0);
    EXPECT_EQ(Content("report"), NewReport());
}

TEST_F(Export, ATerminalIsAsked) {
    MakeOneOfEach();
    Launch launch = Command({"export", "new", One(), Two(), Path("report")});
    launch.Input = launch.Output = launch.Error = Sink::Terminal;
    File("report", "old");
    for (const std::string answer : {"n\n", "\n"}) {
        launch.Typed = answer;
        const Ended run = RunToEnd(launch);
        EXPECT_NE(run.Terminal.find("The same filename exist, overwrite it?"), std::string::npos)
            << run.Terminal;
        EXPECT_EQ(run.Status, 1);
        EXPECT_EQ(Content("report"), "old");
    }
    launch.Typed = "y\n";
    EXPECT_EQ(RunToEnd(launch).Status, 0);
    EXPECT_EQ(Content("report"), NewReport());
}

TEST_F(Export, AFileThatCannotBeWrittenIsStatusTwo) {
    MakeOneOfEach();
    MakeFolder("folder");
    for (const std::string file : {"no/such/folder/report", "folder", "folder/", ""}) {
        const Ended run = OnPairTo({"new", "--force"}, file);
        EXPECT_EQ(run.Status, 2) << file;
        EXPECT_NE(run.Error, "") << file;
    }
    EXPECT_TRUE(std::filesystem::is_directory(Path("folder")));
}

}  // namespace
}  // namespace cli

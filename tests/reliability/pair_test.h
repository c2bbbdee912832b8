// What most of these tests start from: a pair of folders with a row of every kind, small and large,
// and the demand that each path holds one of its versions, whole.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/cli_fixture.h"
#include "reliability/traced_run.h"

namespace reliability {

// Sanitized programs take ten times as long: they get every kStride-th moment.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr long kStride = 10;
#else
inline constexpr long kStride = 1;
#endif

struct Version {
    std::string Content;
    std::int64_t Time = 0;  // seconds from 1970
};

// One relative path: what the two sides hold before a sync, if anything. The newer one is what both
// hold after it.
struct Subject {
    std::string Name;
    std::optional<Version> One;
    std::optional<Version> Two;

    const Version& Newest() const { return !Two || (One && One->Time > Two->Time) ? *One : *Two; }
    const std::optional<Version>& Before(const std::string& side) const {
        return side == "one" ? One : Two;
    }
};

class PairTest : public cli::CliTest {
  protected:
    void SetUp() override;

    // `size` bytes that no other seed gives.
    static std::string Bytes(std::size_t size, char seed);

    // New and replaced files both ways, empty, small and large ones, and one that is the same.
    static std::vector<Subject> Everything();

    // Empties both folders and makes what Subjects says. The history holds one other pair.
    void MakePair();

    // The second half of that, in folders that stand already.
    void FillPair();

    // Every path holds its old version or its new one, content and time, and nothing else is there
    // but temporary files of killed copies: the names of those. The history has lost nothing.
    cli::Texts ExpectWhole(const std::string& where);

    // Both folders hold the newest version of everything and nothing else.
    void ExpectSynced(const std::string& where);

    // Whatever the rows say is done is done, and the tally is that of the rows.
    void ExpectHonest(const cli::Ended& run, const std::string& where);

    // An undisturbed sync does what is left to do, and cleans up.
    void ExpectNextSyncFinishes(const std::string& where);

    cli::Ended Run(const cli::Texts& arguments) const { return cli::RunToEnd(Command(arguments)); }

    // Path, kind, rights, time and content of everything below a folder.
    cli::Texts State(const std::string& relative) const;

    cli::Launch Sync() const { return Command({"sync", "--format=json", One(), Two()}); }

    // A sync under `watch`, its moments counted from the first call that names the test's folder.
    TracedEnd Traced(const cli::Launch& launch, const Watch& watch) const {
        return RunTraced(launch, Path(""), watch);
    }

    // How many moments an undisturbed run has.
    long MomentsOf(const cli::Launch& launch) const;

    std::vector<Subject> Subjects = Everything();

  private:
    std::optional<Version> VersionAt(const std::string& relative) const;
    std::vector<std::string> FilesBelow(const std::string& side) const;
};

}  // namespace reliability

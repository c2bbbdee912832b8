// What most of these tests start from: a pair of folders with a row of every kind, small and large,
// runs of the program that are disturbed at a moment, and the demand that each path then holds one
// of its versions, whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/cli_fixture.h"
#include "reliability/traced_run.h"

namespace reliability {

// Sanitized programs take ten times as long: they get every kStride-th moment.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr std::size_t kStride = 10;
#else
inline constexpr std::size_t kStride = 1;
#endif

struct Version {
    std::string Content;
    std::int64_t Time = 0;  // seconds from 1970

    bool operator==(const Version&) const = default;
};

void PrintTo(const Version& version, std::ostream* stream);

using Versions = std::map<std::string, Version>;  // by relative path

// One relative path: what the two sides hold before a sync, if anything. The newer one is what both
// hold after it.
struct Subject {
    std::string Name;
    std::optional<Version> One;
    std::optional<Version> Two;

    const Version& Newest() const { return !Two || (One && One->Time > Two->Time) ? *One : *Two; }
};

// As many runs of Disturb as there are acts.
inline constexpr std::size_t kEach = SIZE_MAX;

// What is done to a run at one of its moments.
using Acts = std::vector<std::function<void(Moment&)>>;

class PairTest : public cli::CliTest {
  protected:
    void SetUp() override;

    // `size` bytes that no other seed gives.
    static std::string Bytes(std::size_t size, char seed);

    // Empties both folders and makes what Subjects says. The history holds another pair and this
    // one, with a filter.
    void MakePair();

    Versions VersionsIn(const std::string& folder) const;

    // Every path holds its old version or its new one, content and time, and nothing else is there
    // but temporary files of killed copies: the names of those. The history has lost nothing.
    cli::Texts ExpectWhole() const;

    // Both folders hold the newest version of everything and nothing else.
    void ExpectSynced() const;

    // Whatever the rows say is done is done, and the tally is that of the rows.
    void ExpectHonest(const cli::Ended& run) const;

    // An undisturbed sync does what is left to do, and cleans up.
    void ExpectNextSyncFinishes() const;

    cli::Launch Sync() const { return Command({"sync", "--format=json", One(), Two()}); }

    // Runs the program on a new pair once for each act that `plan` gives for a moment of an
    // undisturbed run; more than `runs` of them are thinned out evenly. The act takes place at that
    // moment, or at the next one of its kind where the system lists folders in another order.
    // `examine` sees how the run ended, and the moment as it was without the act.
    void Disturb(const cli::Launch& launch, std::size_t runs,
                 const std::function<Acts(const Moment&)>& plan,
                 const std::function<void(const TracedEnd&, const Moment&)>& examine);

    // New and replaced files both ways, empty, small and large ones, and one that is the same.
    std::vector<Subject> Subjects;

  private:
    std::string Remembered(const std::string& filter) const;
    Versions Newest() const;
};

}  // namespace reliability

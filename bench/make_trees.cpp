// Makes the folder trees that the measurements run on, the same ones on every machine for the same
// options. kUsage has the details.

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cinttypes>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr const char* kUsage =
    R"(make-trees [OPTIONS] OUT

Makes the folder trees OUT/1 and OUT/2.

  --pairs N         relative paths, those that exist on one side only included (100000)
  --folders N       folders that hold the files (pairs / 31; not with flat and single)
  --different P     percent of the pairs that are not the same (10)
  --kinds LIST      what the different ones are, in turn: new1, new2 (on that side only),
                    newer1, newer2 (on both, newer on that side)
                    (new1,new2,newer1,new1,new2,newer2: a third each)
  --size MIN[:MAX]  bytes in a file (20:200)
  --shape SHAPE     normal: folders in folders, 16 to each; flat: one folder; single: a folder
                    for every file; deep: chains of folders 60 levels deep (normal)
  --seed N          another choice of names, times, contents and different files (1)

OUT is made where it is missing; OUT/1 and OUT/2 must not exist. Files that are the same have the
same content and the same time to the nanosecond; folders have equal times too. Prints what was
made as one line. Exit status 2, with a message, when something fails.
)";

constexpr std::uint64_t kFilesPerFolder = 31;
constexpr std::uint64_t kFanOut = 16;
constexpr std::uint64_t kChainLength = 60;
constexpr std::size_t kBlock = 1 << 20;
constexpr time_t kFirstTime = 1'704'067'200;  // 2024-01-01 00:00:00 UTC
constexpr std::uint64_t kTimeSpan = 365 * 86'400;

enum class Kind { Same, New1, New2, Newer1, Newer2 };
constexpr std::array<const char*, 5> kKindNames = {"same", "new1", "new2", "newer1", "newer2"};
constexpr std::array<const char*, 6> kExtensions = {"txt", "jpg", "cpp", "doc", "html", "bmp"};

struct Options {
    std::uint64_t Pairs = 100'000;
    std::uint64_t Folders = 0;
    double Different = 10;
    std::vector<Kind> Kinds = {Kind::New1, Kind::New2, Kind::Newer1,
                               Kind::New1, Kind::New2, Kind::Newer2};
    std::uint64_t MinSize = 20;
    std::uint64_t MaxSize = 200;
    std::string Shape = "normal";
    std::uint64_t Seed = 1;
    std::string Out;
};

struct FileVersion {
    std::uint64_t Size = 0;
    std::size_t ContentOffset = 0;
    timespec Time = {};
};

struct PlannedFile {
    std::string Name;
    Kind What = Kind::Same;
    std::array<FileVersion, 2> Sides;
};

[[noreturn]] void ThrowSystemError(const std::string& operation) {
    throw std::runtime_error(operation + ": " + std::strerror(errno));
}

class Descriptor {
  public:
    Descriptor(int parent, const std::string& name, int flags)
        : value_(::openat(parent, name.c_str(), flags | O_CLOEXEC, 0666)) {
        if (value_ < 0) ThrowSystemError("open " + name);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { ::close(value_); }
    operator int() const { return value_; }

  private:
    int value_;
};

void MakeFolder(int parent, const std::string& name) {
    if (::mkdirat(parent, name.c_str(), 0777) != 0) ThrowSystemError("make folder " + name);
}

void SetTime(int descriptor, const timespec& time) {
    const timespec times[2] = {time, time};
    if (::futimens(descriptor, times) != 0) ThrowSystemError("set time");
}

// Decides file after file what it is. Everything is drawn in a fixed order, so that the trees
// depend on nothing but the options.
class Plan {
  public:
    explicit Plan(const Options& options)
        : options_(options),
          random_(options.Seed),
          left_(options.Pairs),
          differentLeft_(static_cast<std::uint64_t>(
              std::llround(static_cast<double>(options.Pairs) * options.Different / 100))) {}

    PlannedFile Next() {
        PlannedFile file;
        file.What = NextKind();
        file.Name = NextName();
        const FileVersion older = NextVersion();
        FileVersion newer = NextVersion();
        newer.Time = older.Time;
        newer.Time.tv_sec += static_cast<time_t>(1 + Below(86'400));
        file.Sides[0] = file.What == Kind::Newer1 ? newer : older;
        file.Sides[1] = file.What == Kind::Newer2 ? newer : older;
        return file;
    }

  private:
    // Takes each remaining file with the chance that makes the number of different ones exact.
    Kind NextKind() {
        const bool different = Below(left_--) < differentLeft_;
        if (!different) return Kind::Same;
        --differentLeft_;
        return options_.Kinds[differentTaken_++ % options_.Kinds.size()];
    }

    std::string NextName() {
        std::array<char, 64> name;
        const auto mark = static_cast<unsigned>(Below(0x10000));
        std::snprintf(name.data(), name.size(), "file_%07" PRIu64 "_%04x.%s", number_++, mark,
                      kExtensions[Below(kExtensions.size())]);
        return name.data();
    }

    FileVersion NextVersion() {
        FileVersion version;
        version.Size = options_.MinSize + Below(options_.MaxSize - options_.MinSize + 1);
        version.ContentOffset = Below(kBlock);
        version.Time.tv_sec = kFirstTime + static_cast<time_t>(Below(kTimeSpan));
        version.Time.tv_nsec = static_cast<long>(Below(1'000'000'000));
        return version;
    }

    std::uint64_t Below(std::uint64_t limit) { return random_() % limit; }

    const Options& options_;
    // Its output is fixed by the standard, unlike that of the standard's distributions.
    std::mt19937_64 random_;
    std::uint64_t left_;
    std::uint64_t differentLeft_;
    std::uint64_t differentTaken_ = 0;
    std::uint64_t number_ = 0;
};

// The folders that hold files, as relative paths, parents first.
std::vector<std::string> FolderPaths(const Options& options) {
    if (options.Shape == "flat") return {"."};
    const bool single = options.Shape == "single";
    const std::uint64_t wanted =
        options.Folders ? options.Folders : options.Pairs / kFilesPerFolder;
    const std::uint64_t count = single ? options.Pairs : std::max<std::uint64_t>(1, wanted);
    std::vector<std::string> paths;
    paths.reserve(count);
    for (std::uint64_t i = 0; i < count; ++i) {
        std::string name = "folder_" + std::to_string(i);
        if (options.Shape == "deep" && i % kChainLength != 0) {
            name = paths[i - 1] + "/" + name;
        } else if (options.Shape == "normal" && i >= kFanOut) {
            name = paths[i / kFanOut - 1] + "/" + name;
        }
        paths.push_back(std::move(name));
    }
    return paths;
}

class TreeMaker {
  public:
    explicit TreeMaker(const Options& options) : options_(options), content_(2 * kBlock) {
        std::mt19937_64 random(options.Seed);
        for (std::size_t i = 0; i < content_.size(); i += sizeof(std::uint64_t)) {
            const std::uint64_t word = random();
            std::memcpy(&content_[i], &word, sizeof word);
        }
    }

    void Make() {
        if (::mkdir(options_.Out.c_str(), 0777) != 0 && errno != EEXIST) {
            ThrowSystemError("make folder " + options_.Out);
        }
        const Descriptor out(AT_FDCWD, options_.Out, O_RDONLY | O_DIRECTORY);
        MakeFolder(out, "1");
        MakeFolder(out, "2");
        const Descriptor side1(out, "1", O_RDONLY | O_DIRECTORY);
        const Descriptor side2(out, "2", O_RDONLY | O_DIRECTORY);
        const std::vector<std::string> folders = FolderPaths(options_);
        MakeFolders(side1, folders);
        MakeFolders(side2, folders);
        FillFolders(side1, side2, folders);
        SetTime(side1, kFolderTime);
        SetTime(side2, kFolderTime);
        Report(folders.size());
    }

  private:
    static constexpr timespec kFolderTime = {kFirstTime, 0};

    static void MakeFolders(int side, const std::vector<std::string>& folders) {
        for (const std::string& folder : folders) {
            if (folder != ".") MakeFolder(side, folder);
        }
    }

    void FillFolders(int side1, int side2, const std::vector<std::string>& folders) {
        Plan plan(options_);
        std::uint64_t made = 0;
        for (std::size_t i = 0; i < folders.size(); ++i) {
            const Descriptor folder1(side1, folders[i], O_RDONLY | O_DIRECTORY);
            const Descriptor folder2(side2, folders[i], O_RDONLY | O_DIRECTORY);
            const std::uint64_t end = options_.Pairs * (i + 1) / folders.size();
            for (; made < end; ++made) MakePair(folder1, folder2, plan.Next());
            SetTime(folder1, kFolderTime);
            SetTime(folder2, kFolderTime);
        }
    }

    void MakePair(int folder1, int folder2, const PlannedFile& file) {
        if (file.What != Kind::New2) MakeFile(folder1, file.Name, file.Sides[0]);
        if (file.What != Kind::New1) MakeFile(folder2, file.Name, file.Sides[1]);
        ++made_[static_cast<std::size_t>(file.What)];
    }

    void MakeFile(int folder, const std::string& name, const FileVersion& version) {
        const Descriptor file(folder, name, O_WRONLY | O_CREAT | O_EXCL);
        for (std::uint64_t left = version.Size; left > 0;) {
            const std::size_t wanted =
                static_cast<std::size_t>(std::min<std::uint64_t>(left, kBlock));
            const ssize_t written = ::write(file, &content_[version.ContentOffset], wanted);
            if (written < 0) ThrowSystemError("write " + name);
            left -= static_cast<std::uint64_t>(written);
        }
        SetTime(file, version.Time);
    }

    void Report(std::size_t folders) const {
        std::printf("%" PRIu64 " pairs in %zu folders:", options_.Pairs, folders);
        for (std::size_t i = 0; i < made_.size(); ++i) {
            std::printf(" %s %" PRIu64, kKindNames[i], made_[i]);
        }
        std::printf("\n");
    }

    const Options& options_;
    std::vector<char> content_;
    std::array<std::uint64_t, kKindNames.size()> made_ = {};
};

template <typename Number>
Number ParseNumber(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw std::invalid_argument("not a number: " + std::string(text));
    }
    return value;
}

Kind ParseKind(std::string_view text) {
    const auto found = std::find(kKindNames.begin(), kKindNames.end(), text);
    if (found == kKindNames.end()) throw std::invalid_argument("no kind: " + std::string(text));
    return static_cast<Kind>(found - kKindNames.begin());
}

std::vector<Kind> ParseKinds(std::string_view text) {
    std::vector<Kind> kinds;
    while (true) {
        const std::size_t comma = text.find(',');
        kinds.push_back(ParseKind(text.substr(0, comma)));
        if (comma == std::string_view::npos) return kinds;
        text.remove_prefix(comma + 1);
    }
}

void ParseSize(std::string_view text, Options& options) {
    const std::size_t colon = text.find(':');
    options.MinSize = ParseNumber<std::uint64_t>(text.substr(0, colon));
    options.MaxSize = colon == std::string_view::npos
                          ? options.MinSize
                          : ParseNumber<std::uint64_t>(text.substr(colon + 1));
    if (options.MaxSize < options.MinSize) throw std::invalid_argument("--size: MAX below MIN");
}

void SetOption(std::string_view name, std::string_view value, Options& options) {
    if (name == "--pairs") {
        options.Pairs = ParseNumber<std::uint64_t>(value);
    } else if (name == "--folders") {
        options.Folders = ParseNumber<std::uint64_t>(value);
    } else if (name == "--different") {
        options.Different = ParseNumber<double>(value);
        if (!(options.Different >= 0 && options.Different <= 100)) {
            throw std::invalid_argument("--different: 0 to 100");
        }
    } else if (name == "--kinds") {
        options.Kinds = ParseKinds(value);
    } else if (name == "--size") {
        ParseSize(value, options);
    } else if (name == "--seed") {
        options.Seed = ParseNumber<std::uint64_t>(value);
    } else if (name == "--shape") {
        options.Shape = value;
        constexpr std::array<const char*, 4> kShapes = {"normal", "flat", "single", "deep"};
        if (std::find(kShapes.begin(), kShapes.end(), value) == kShapes.end()) {
            throw std::invalid_argument("no shape: " + options.Shape);
        }
    } else {
        throw std::invalid_argument("unknown option " + std::string(name));
    }
}

Options ParseArguments(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument.substr(0, 2) == "--") {
            if (++i == argc) throw std::invalid_argument(std::string(argument) + " needs a value");
            SetOption(argument, argv[i], options);
        } else if (options.Out.empty()) {
            options.Out = argument;
        } else {
            throw std::invalid_argument("more than one OUT");
        }
    }
    if (options.Out.empty()) throw std::invalid_argument("no OUT; make-trees --help");
    return options;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && std::strcmp(argv[1], "--help") == 0) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    try {
        const Options options = ParseArguments(argc, argv);
        TreeMaker(options).Make();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make-trees: %s\n", error.what());
        return 2;
    }
}

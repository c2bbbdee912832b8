// window-shot FOLDER1 FOLDER2 FILE.bmp [start|compared|direction]: opens the window on two folders
// and leaves a picture of it as a BMP file: as it starts, after a comparison (when nothing is
// said), or with the direction panel open on the first modified file. Its exit status is 0 if all
// went well.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>

#include "window/window_driver.h"

namespace {

constexpr int kPicturesAtRest = 30;
constexpr unsigned kLongestComparison = 9 * 60 * 1000;  // ms

void OpenDirectionPanel(const window::Program& program) {
    const window::Texts rows = program.Rows();
    const auto modified = std::find_if(rows.begin(), rows.end(), [](const std::string& row) {
        return row.find("Replace") != std::string::npos;
    });
    if (modified == rows.end()) throw std::runtime_error("no file is modified");
    program.Click(window::Program::Cell("sMAC", static_cast<int>(modified - rows.begin())));
    program.WaitUntilShown("Picture3");
}

// The window once it has not changed for a while.
window::ScreenPicture PictureAtRest(HWND window) {
    window::ScreenPicture picture(window::AreaOf(window));
    for (int same = 0; same < kPicturesAtRest; ++same) {
        const window::ScreenPicture last = picture;
        picture = window::ScreenPicture(window::AreaOf(window));
        if (!(picture == last)) same = 0;
    }
    return picture;
}

void TakePicture(const std::string& pair, const std::string& file, const std::string& moment) {
    const window::Program program(pair);
    if (moment != "start") program.Compare(kLongestComparison);
    if (moment == "direction") OpenDirectionPanel(program);
    if (!PictureAtRest(program.Window()).Save(file))
        throw std::runtime_error("cannot write " + file);
}

}  // namespace

int main(int count, char** arguments) {
    const std::string moment = count == 5 ? arguments[4] : "compared";
    if (count < 4 || count > 5 ||
        (moment != "start" && moment != "compared" && moment != "direction")) {
        std::fprintf(stderr,
                     "usage: window-shot FOLDER1 FOLDER2 FILE.bmp [start|compared|direction]\n");
        return 2;
    }
    try {
        TakePicture(std::string(arguments[1]) + " , " + arguments[2], arguments[3], moment);
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "window-shot: %s\n", failure.what());
        return 1;
    }
}

// window-shot FOLDER1 FOLDER2 FILE.bmp [start|compared|direction]: opens the window on two folders
// and leaves a picture of it as a BMP file: as it starts, after a comparison (when nothing is
// said), or with the direction panel open on the first modified file. Its exit status is 0 if all
// went well.

#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "window/window_driver.h"

namespace {

constexpr int kPicturesAtRest = 30;
constexpr unsigned kLongestComparison = 9 * 60 * 1000;  // ms

void OpenDirectionPanel(const window::Program& program) {
    int row = 0;
    const auto cell = [&row] { return "sMAC(" + std::to_string(row) + ")"; };
    while (program.Text(cell()).find("Replace") == std::string::npos) ++row;  // throws at the end
    program.Click(cell());
    program.WaitFor("Picture3", &window::Seen::Visible, true);
}

// The window once it has not changed for a while.
std::string PictureAtRest(HWND window) {
    std::string picture;
    for (int same = 0; same < kPicturesAtRest; ++same) {
        const std::string last = std::exchange(picture, window::PictureOf(window::AreaOf(window)));
        if (picture != last) same = 0;
    }
    return picture;
}

void TakePicture(const std::string& pair, const std::string& file, const std::string& moment) {
    const window::Program program(pair);
    if (moment != "start") program.Compare(kLongestComparison);
    if (moment == "direction") OpenDirectionPanel(program);
    const std::string picture = PictureAtRest(program.Window());
    if (!(std::ofstream(file, std::ios::binary) << picture).flush())
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

// Writes the program's icon: draw-icon FILE. Runs while the Windows programs are built.
//
// Sizes up to 64 pixels are plain bitmaps, which every reader of icons knows; the largest is a PNG,
// as Windows expects of it.

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/win32/drawings.h"

namespace {

using platform::win32::Pixel;

constexpr int kSizes[] = {16, 20, 24, 32, 40, 48, 64, 256};
constexpr int kFirstPngSize = 256;

void AppendLittle(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i));
}

void AppendBig(std::string& bytes, std::uint32_t value) {
    for (int i = 3; i >= 0; --i) bytes += static_cast<char>(value >> (8 * i));
}

// 32 bits a pixel from the bottom row upwards, and an empty mask: the alpha says it all.
std::string Bitmap(const std::vector<Pixel>& pixels, int size) {
    const auto side = static_cast<std::uint32_t>(size);
    const std::uint32_t maskSize = (side + 31) / 32 * 4 * side;
    std::string bytes;
    AppendLittle(bytes, 40, 4);
    AppendLittle(bytes, side, 4);
    AppendLittle(bytes, side * 2, 4);
    AppendLittle(bytes, 1, 2);
    AppendLittle(bytes, 32, 2);
    AppendLittle(bytes, 0, 4);
    AppendLittle(bytes, side * side * 4 + maskSize, 4);
    bytes.append(16, '\0');
    for (int row = size - 1; row >= 0; --row)
        for (int column = 0; column < size; ++column) {
            const Pixel& pixel = pixels[static_cast<std::size_t>(row * size + column)];
            for (const std::uint8_t part : {pixel.Blue, pixel.Green, pixel.Red, pixel.Alpha})
                bytes += static_cast<char>(part);
        }
    return bytes.append(maskSize, '\0');
}

std::uint32_t Crc(std::string_view bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
    }
    return ~crc;
}

std::uint32_t Adler(std::string_view bytes) {
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char byte : bytes) {
        a = (a + static_cast<unsigned char>(byte)) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

void AppendChunk(std::string& png, std::string_view type, std::string_view data) {
    std::string body(type);
    body += data;
    AppendBig(png, static_cast<std::uint32_t>(data.size()));
    png += body;
    AppendBig(png, Crc(body));
}

// A deflate stream with the format's fixed codes. The only matches it looks for repeat the byte
// before, which is enough for a drawing of even areas.
class Deflater {
  public:
    std::string Deflate(std::string_view data) {
        Put(1, 1);  // the last block
        Put(1, 2);  // with fixed codes
        for (std::size_t i = 0; i < data.size();) {
            const unsigned run = RunAt(data, i);
            if (run >= kShortestRun)
                PutRun(run);
            else
                PutSymbol(static_cast<unsigned char>(data[i]));
            i += run >= kShortestRun ? run : 1;
        }
        PutSymbol(kEnd);
        if (filled_ > 0) Put(0, 8 - filled_);
        return std::move(bytes_);
    }

  private:
    static constexpr unsigned kEnd = 256;
    static constexpr unsigned kFirstRun = 257;
    static constexpr unsigned kShortestRun = 3;
    static constexpr unsigned kLongestRun = 258;

    // How many bytes from `at` on equal the one before it.
    static unsigned RunAt(std::string_view data, std::size_t at) {
        unsigned length = 0;
        while (at > 0 && length < kLongestRun && at + length < data.size() &&
               data[at + length] == data[at - 1])
            ++length;
        return length;
    }

    // Codes of lengths come in groups of four (eight at first); each group has one more extra bit.
    void PutRun(unsigned length) {
        unsigned code = 0;
        unsigned base = kShortestRun;
        int extra = 0;
        while (length != kLongestRun && length >= base + (1u << extra)) {
            base += 1u << extra;
            ++code;
            extra = code < 8 ? 0 : static_cast<int>(code / 4) - 1;
        }
        if (length == kLongestRun) code = 28;
        PutSymbol(kFirstRun + code);
        if (length != kLongestRun) Put(length - base, extra);
        Put(0, 5);  // distance 1
    }

    void PutSymbol(unsigned symbol) {
        if (symbol < 144)
            PutReversed(0x30 + symbol, 8);
        else if (symbol < 256)
            PutReversed(0x190 + symbol - 144, 9);
        else if (symbol < 280)
            PutReversed(symbol - 256, 7);
        else
            PutReversed(0xC0 + symbol - 280, 8);
    }

    void PutReversed(unsigned code, int count) {
        for (int i = count - 1; i >= 0; --i) Put(code >> i & 1, 1);
    }

    void Put(unsigned bits, int count) {
        for (int i = 0; i < count; ++i) {
            byte_ |= (bits >> i & 1) << filled_;
            if (++filled_ < 8) continue;
            bytes_ += static_cast<char>(byte_);
            byte_ = 0;
            filled_ = 0;
        }
    }

    std::string bytes_;
    unsigned byte_ = 0;
    int filled_ = 0;
};

// Rows as differences from the row above: zeros wherever the drawing is even.
std::string FilteredRows(const std::vector<Pixel>& pixels, int size) {
    constexpr char kUp = 2;
    const auto side = static_cast<std::size_t>(size);
    std::string rows;
    for (std::size_t row = 0; row < side; ++row) {
        rows += kUp;
        for (std::size_t column = 0; column < side; ++column) {
            const Pixel& pixel = pixels[row * side + column];
            const Pixel above = row > 0 ? pixels[(row - 1) * side + column] : Pixel{};
            rows += static_cast<char>(pixel.Red - above.Red);
            rows += static_cast<char>(pixel.Green - above.Green);
            rows += static_cast<char>(pixel.Blue - above.Blue);
            rows += static_cast<char>(pixel.Alpha - above.Alpha);
        }
    }
    return rows;
}

std::string Png(const std::vector<Pixel>& pixels, int size) {
    using namespace std::string_view_literals;
    std::string header;
    AppendBig(header, static_cast<std::uint32_t>(size));
    AppendBig(header, static_cast<std::uint32_t>(size));
    header += "\x08\x06\x00\x00\x00"sv;  // 8 bits each of red, green, blue and alpha
    const std::string rows = FilteredRows(pixels, size);
    std::string data = "\x78\x01" + Deflater().Deflate(rows);
    AppendBig(data, Adler(rows));
    std::string png = "\x89PNG\r\n\x1A\n";
    AppendChunk(png, "IHDR", header);
    AppendChunk(png, "IDAT", data);
    AppendChunk(png, "IEND", {});
    return png;
}

std::string Icon() {
    constexpr std::uint32_t kHeaderSize = 6;
    constexpr std::uint32_t kEntrySize = 16;
    constexpr std::uint32_t kCount = std::size(kSizes);
    std::string directory;
    AppendLittle(directory, 0, 2);
    AppendLittle(directory, 1, 2);  // an icon
    AppendLittle(directory, kCount, 2);
    std::string images;
    for (const int size : kSizes) {
        const auto pixels = Rasterize(platform::win32::ProgramIcon(), size);
        const std::string image = size >= kFirstPngSize ? Png(pixels, size) : Bitmap(pixels, size);
        const auto side = static_cast<std::uint32_t>(size) & 0xFF;  // 0 stands for 256
        AppendLittle(directory, side | side << 8, 4);
        AppendLittle(directory, 1, 2);
        AppendLittle(directory, 32, 2);
        AppendLittle(directory, static_cast<std::uint32_t>(image.size()), 4);
        AppendLittle(directory,
                     kHeaderSize + kEntrySize * kCount + static_cast<std::uint32_t>(images.size()),
                     4);
        images += image;
    }
    return directory + images;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: draw-icon FILE\n";
        return 2;
    }
    std::ofstream file(arguments[1], std::ios::binary);
    file << Icon() << std::flush;
    return file ? 0 : 1;
}

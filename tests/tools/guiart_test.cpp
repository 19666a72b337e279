// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "quarn2/texturedata.h"
#include "tests/support/temporary_folder.h"
#include "tools/guiart/gallery.h"
#include "tools/guiart/surfaces.h"
#include "tools/guisheet.h"
#include "tools/tgawriter.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

const char* const kSheetFile = "data/gui.tga";

/// Runs the program; its output goes to `output` and its errors to `errors` in the folder.
int RunGuiArt(const TemporaryFolder& folder, const std::string& arguments) {
    const std::string command = "'" + std::string(GUIART) + "' " + arguments + " >"
                                + folder.Path("output") + " 2>" + folder.Path("errors");
    return WEXITSTATUS(std::system(command.c_str()));
}

std::string Text(const std::string& path) {
    const Bytes bytes = FileBytes(path);
    return {bytes.begin(), bytes.end()};
}

TextureData Image(int width, int height, const Bytes& bytes) {
    TextureData image;
    image.Load(width, height, true, bytes.data());
    return image;
}

Bytes PixelBytes(const TextureData& image) {
    const auto count = static_cast<std::size_t>(image.GetWidth())
                       * static_cast<std::size_t>(image.GetHeight()) * 4;
    Bytes bytes;
    for (std::size_t i = 0; i < count; ++i)
        bytes.push_back(static_cast<std::uint8_t>(std::lround(image.GetData()[i] * 255.0f)));
    return bytes;
}

class GalleryTest : public testing::TestWithParam<GalleryPicture> {
protected:
    const std::string file = std::string("data/") + GetParam().file;
};

TEST_P(GalleryTest, DrawingAgainGivesTheBytesOfTheFileInTheData) {
    const Bytes committed = FileBytes(file);
    ASSERT_FALSE(committed.empty());
    EXPECT_TRUE(EncodeTGA(GetParam().draw()) == committed) << "draw it again with: guiart data";
}

TEST_P(GalleryTest, HasSidesThatArePowersOfTwo) {
    TextureData picture;
    ASSERT_TRUE(picture.Load(file));
    EXPECT_TRUE(std::has_single_bit(static_cast<unsigned>(picture.GetWidth())));
    EXPECT_TRUE(std::has_single_bit(static_cast<unsigned>(picture.GetHeight())));
}

INSTANTIATE_TEST_SUITE_P(Pictures, GalleryTest, testing::ValuesIn(Gallery()),
                         [](const auto& picture) {
                             std::string name = picture.param.file;
                             std::erase_if(name, [](char c) { return c == '/' || c == '-'; });
                             return name.substr(0, name.find('.'));
                         });

TEST(GuiArtTest, EveryPictureInTheDataIsInTheGallery) {
    std::set<std::string> drawn;
    for (const GalleryPicture& picture : Gallery())
        drawn.insert(picture.file);
    std::set<std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator("data")) {
        if (entry.path().extension() == ".tga")
            found.insert(std::filesystem::relative(entry.path(), "data"));
    }
    EXPECT_EQ(found, drawn);
}

TEST(GuiArtTest, EveryPictureIsWritten) {
    const TemporaryFolder folder;
    for (const char* set : {"sets/large", "sets/high-contrast"})
        std::filesystem::create_directories(folder.Path(set));
    EXPECT_EQ(RunGuiArt(folder, folder.Path("")), 0);
    for (const GalleryPicture& picture : Gallery()) {
        EXPECT_TRUE(FileBytes(folder.Path(picture.file))
                    == FileBytes(std::string("data/") + picture.file))
            << picture.file;
    }
    EXPECT_EQ(Text(folder.Path("output")) + Text(folder.Path("errors")), "");
}

TEST(GuiArtTest, OnePictureCanBeWrittenAlone) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunGuiArt(folder, folder.Path("") + " --only seal.tga"), 0);
    EXPECT_TRUE(FileBytes(folder.Path("seal.tga")) == FileBytes("data/seal.tga"));
    EXPECT_FALSE(std::filesystem::exists(folder.Path("desk.tga")));
}

TEST(GuiArtTest, UnknownPictureIsNamed) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunGuiArt(folder, folder.Path("") + " --only sky.tga"), 2);
    EXPECT_EQ(Text(folder.Path("errors")), "guiart: there is no picture sky.tga\n");
}

TEST(GuiArtTest, RectanglesArePrintedAsTheConfigurationNeedsThem) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunGuiArt(folder, "--rectangles"), 0);
    EXPECT_EQ(Text(folder.Path("output")),
              "0.03125 0.03125 0.21875 0.21875 // optionRect\n"
              "0.28125 0.03125 0.46875 0.21875 // optionMarkRect\n"
              "0.53125 0.03125 0.71875 0.21875 // checkRect\n"
              "0.78125 0.03125 0.96875 0.21875 // checkMarkRect\n"
              "0.03125 0.28125 0.21875 0.46875 // sliderRect\n");
}

TEST(GuiArtTest, RectanglesOfTheGamesConfigurationAreThoseOfTheSheet) {
    std::ifstream configuration("data/gui.conf");
    std::string line;
    std::getline(configuration, line);  // the font
    std::getline(configuration, line);  // unused
    for (const SheetPicture& picture : kSheetPictures) {
        std::getline(configuration, line);
        std::istringstream numbers(line);
        Vector read;
        numbers >> read.x >> read.y >> read.z >> read.w;
        const Vector drawn = picture.Rectangle();
        EXPECT_EQ(read.x, drawn.x) << picture.name;
        EXPECT_EQ(read.y, drawn.y) << picture.name;
        EXPECT_EQ(read.z, drawn.z) << picture.name;
        EXPECT_EQ(read.w, drawn.w) << picture.name;
    }
}

void ExpectSheets(std::span<const SheetPlace> places, const std::string& file) {
    constexpr float kPixelsPerUnit = 600.0f / 2.6f;
    std::ifstream layout(file);
    std::set<std::string> met;
    for (std::string line; std::getline(layout, line);) {
        std::istringstream words(line);
        std::string statement, kind, tag, parent, picture;
        float x = 0.0f, y = 0.0f, width = 0.0f, height = 0.0f;
        words >> statement >> kind >> tag >> parent >> x >> y >> picture >> width >> height;
        const auto place = std::ranges::find(places, tag, &SheetPlace::tag);
        if (statement != "CADD" || place == places.end())
            continue;
        met.insert(tag);
        const auto pixel = [&](float units) { return std::lround(units * kPixelsPerUnit); };
        EXPECT_EQ(pixel(x) + 400, place->left) << tag;
        EXPECT_EQ(300 - pixel(y), place->bottom) << tag;
        EXPECT_EQ(pixel(width), place->right - place->left) << tag;
        EXPECT_EQ(pixel(height), place->bottom - place->top) << tag;
    }
    EXPECT_EQ(met.size(), places.size());
}

TEST(GuiArtTest, SheetsOfTheDeskAreWhereTheLayoutsShowThem) {
    ExpectSheets(kSheetPlaces, "data/my.gui.debug");
    ExpectSheets(kLargeSheetPlaces, "data/sets/large/my.gui.debug");
}

TEST(GuiArtTest, WithoutFolderAndRectanglesThereIsNothingToDo) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunGuiArt(folder, ""), 2);
    EXPECT_EQ(Text(folder.Path("errors")),
              "guiart: nothing to do: give a FOLDER or --rectangles\n");
}

TEST(GuiArtTest, FileThatCannotBeWrittenIsNamed) {
    const TemporaryFolder folder;
    EXPECT_EQ(RunGuiArt(folder, folder.Path("none")), 1);
    EXPECT_EQ(Text(folder.Path("errors")), folder.Path("none/gui.tga") + ": cannot be written\n");
    std::filesystem::create_symlink("/dev/full", folder.Path("seal.tga"));
    EXPECT_EQ(RunGuiArt(folder, folder.Path("") + " --only seal.tga"), 1);
    EXPECT_EQ(Text(folder.Path("errors")), folder.Path("") + "/seal.tga: cannot be written\n");
}

TEST(GuiArtTest, ImageMagickReadsTheSheetAsItWasDrawn) {
    const TemporaryFolder folder;
    const std::string raw = folder.Path("raw.rgba");
    const std::string command =
        std::string("/usr/bin/convert-im6.q16 ") + kSheetFile + " -depth 8 rgba:" + raw;
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_TRUE(FileBytes(raw) == PixelBytes(DrawGuiSheet()));
}

/// The sheet by pixels, the origin at the lower left.
class GuiSheetTest : public testing::TestWithParam<SheetPicture> {
protected:
    GuiSheetTest() : rectangle(GetParam().Rectangle()) {
        EXPECT_TRUE(sheet.Load(kSheetFile));
        left = Pixel(rectangle.x, sheet.GetWidth());
        bottom = Pixel(rectangle.y, sheet.GetHeight());
        right = Pixel(rectangle.z, sheet.GetWidth());
        top = Pixel(rectangle.w, sheet.GetHeight());
    }

    /// A texture coordinate as a pixel's edge, on which it must lie.
    static int Pixel(float coordinate, int pixels) {
        const float edge = coordinate * static_cast<float>(pixels);
        EXPECT_EQ(edge, std::floor(edge));
        return static_cast<int>(edge);
    }

    const float* At(int x, int y) const {
        return sheet.GetData() + static_cast<std::ptrdiff_t>(y * sheet.GetWidth() + x) * 4;
    }
    float Alpha(int x, int y) const { return At(x, y)[3]; }

    TextureData sheet;
    Vector rectangle;
    int left, bottom, right, top;
};

TEST_P(GuiSheetTest, HasAShapeInItsMiddleHalf) {
    float most = 0.0f;
    for (int y = bottom + (top - bottom) / 4; y < top - (top - bottom) / 4; ++y) {
        for (int x = left + (right - left) / 4; x < right - (right - left) / 4; ++x)
            most = std::max(most, Alpha(x, y));
    }
    EXPECT_GT(most, 0.4f);
}

TEST_P(GuiSheetTest, HasEnoughPixelsForTheLargestSizeOfAWidget) {
    EXPECT_EQ(right - left, top - bottom);
    EXPECT_GE(right - left, 2 * 23);
}

TEST_P(GuiSheetTest, HasATransparentMarginThatIsWideEnoughForMipmaps) {
    // Drawn at 12 pixels, four or eight of the sheet become one, and a neighbour is mixed in.
    constexpr int kMargin = 8;
    for (int y = bottom - kMargin; y < top + kMargin; ++y) {
        for (int x = left - kMargin; x < right + kMargin; ++x) {
            const bool inside = x >= left && x < right && y >= bottom && y < top;
            EXPECT_TRUE(inside || Alpha(x, y) == 0.0f) << x << ", " << y;
        }
    }
}

TEST_P(GuiSheetTest, BordersLieBetweenTexelsOfSmallMipmaps) {
    for (const int edge : {left, bottom, right, top})
        EXPECT_EQ(edge % 8, 0);
    EXPECT_EQ(sheet.GetWidth() & (sheet.GetWidth() - 1), 0);
    EXPECT_EQ(sheet.GetHeight() & (sheet.GetHeight() - 1), 0);
}

TEST_P(GuiSheetTest, IsGreySoThatThemesColourIt) {
    for (int y = bottom; y < top; ++y) {
        for (int x = left; x < right; ++x) {
            EXPECT_EQ(At(x, y)[0], At(x, y)[1]);
            EXPECT_EQ(At(x, y)[0], At(x, y)[2]);
        }
    }
}

TEST_P(GuiSheetTest, TransparentPixelsAreWhiteSoThatFilteringDarkensNoEdge) {
    for (int y = bottom; y < top; ++y) {
        for (int x = left; x < right; ++x)
            EXPECT_TRUE(Alpha(x, y) > 0.0f || At(x, y)[0] == 1.0f) << x << ", " << y;
    }
}

TEST_P(GuiSheetTest, IsUprightWhenTGrowsUpwards) {
    const std::string name = GetParam().name;
    if (name != "checkMarkRect") {
        // Lit from above.
        float low = 0.0f;
        float high = 0.0f;
        const int middle = (bottom + top) / 2;
        for (int y = bottom; y < top; ++y) {
            for (int x = left; x < right; ++x)
                (y < middle ? low : high) += At(x, y)[0] * Alpha(x, y);
        }
        EXPECT_GT(high, low);
        return;
    }
    // The tick's lowest point is left of the middle, its highest at the right.
    const auto columnOfRow = [&](int from, int to, int step) {
        for (int y = from; y != to; y += step) {
            for (int x = left; x < right; ++x) {
                if (Alpha(x, y) > 0.5f)
                    return x;
            }
        }
        return -1;
    };
    const int middle = (left + right) / 2;
    EXPECT_LT(columnOfRow(bottom, top, 1), middle);
    EXPECT_GT(columnOfRow(top - 1, bottom, -1), middle);
}

INSTANTIATE_TEST_SUITE_P(Pictures, GuiSheetTest, testing::ValuesIn(kSheetPictures),
                         [](const auto& picture) { return std::string(picture.param.name); });

TEST(TgaWriterTest, EqualPixelsAreOneRunPacket) {
    const Bytes file = EncodeTGA(Image(3, 1, {1, 2, 3, 4, 1, 2, 3, 4, 1, 2, 3, 4}));
    EXPECT_EQ(file, (Bytes{0,    0, 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 3, 0, 1, 0, 32, 8,  // header
                           0x82, 3, 2,  1, 4}));
}

TEST(TgaWriterTest, DifferentPixelsAreOneRawPacket) {
    const Bytes file = EncodeTGA(Image(3, 1, {1, 2, 3, 4, 5, 6, 7, 8, 1, 2, 3, 4}));
    EXPECT_EQ(Bytes(file.begin() + 18, file.end()),
              (Bytes{0x02, 3, 2, 1, 4, 7, 6, 5, 8, 3, 2, 1, 4}));
}

TEST(TgaWriterTest, RunAfterDifferentPixelsBeginsANewPacket) {
    const Bytes file = EncodeTGA(Image(3, 1, {9, 9, 9, 9, 1, 2, 3, 4, 1, 2, 3, 4}));
    EXPECT_EQ(Bytes(file.begin() + 18, file.end()), (Bytes{0x00, 9, 9, 9, 9, 0x81, 3, 2, 1, 4}));
}

TEST(TgaWriterTest, PacketsEndWithTheirRow) {
    const Bytes file = EncodeTGA(Image(1, 2, {1, 2, 3, 4, 1, 2, 3, 4}));
    EXPECT_EQ(Bytes(file.begin() + 18, file.end()), (Bytes{0x00, 3, 2, 1, 4, 0x00, 3, 2, 1, 4}));
}

TEST(TgaWriterTest, ValuesAreRoundedAndClampedToBytes) {
    TextureData image = Image(1, 1, {0, 0, 0, 0});
    const float values[] = {0.5f, 1.5f, -1.0f, 0.499f};
    std::copy(std::begin(values), std::end(values), image.GetData());
    const Bytes file = EncodeTGA(image);
    EXPECT_EQ(Bytes(file.begin() + 18, file.end()), (Bytes{0x00, 0, 255, 128, 127}));
}

TEST(TgaWriterTest, OpaqueImageIsWrittenWith24Bits) {
    const Bytes file = EncodeTGA(Image(3, 1, {1, 2, 3, 255, 1, 2, 3, 255, 9, 8, 7, 255}));
    EXPECT_EQ(file, (Bytes{0,    0, 10, 0, 0,    0, 0, 0, 0, 0, 0, 0, 3, 0, 1, 0, 24, 0,  // header
                           0x81, 3, 2,  1, 0x00, 7, 8, 9}));
}

TEST(TgaWriterTest, WrittenFileIsReadBackUnchanged) {
    const TemporaryFolder folder;
    std::mt19937 random(1);
    for (const int width : {1, 2, 127, 128, 129, 256, 257, 300, 1000}) {
        for (const unsigned variety : {1u, 2u, 200u}) {
            const std::uint8_t alpha = variety == 2 ? 255 : 200;
            Bytes bytes;
            for (int pixel = 0; pixel < width * 3; ++pixel) {
                const auto value = static_cast<std::uint8_t>(random() % variety);
                bytes.insert(bytes.end(), {value, 7, value, alpha});
            }
            const std::string path = folder.Path("image.tga");
            ASSERT_TRUE(WriteTGA(Image(width, 3, bytes), path));
            TextureData read;
            ASSERT_TRUE(read.Load(path));
            EXPECT_EQ(read.GetWidth(), width);
            EXPECT_EQ(read.GetHeight(), 3);
            EXPECT_TRUE(PixelBytes(read) == bytes) << width << ", " << variety;
        }
    }
}

}  // namespace

// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// What the module "ardeno-images" offers to the program. Plain types: it is opened at run time and shares no library
// of this project.
namespace ardeno {

struct ImageJob {
    int descriptor = -1; // Of a regular file, open for reading.
    int longestSide = 0; // Pixels; the picture is never enlarged.
    void *context = nullptr;
    // Called once, then rows from top to bottom, one call at a time; either ends the work by returning false.
    bool (*begin)(void *context, int width, int height) = nullptr;
    // Pixels of 32 bits in memory order blue, green, red, unused, without gaps.
    bool (*rows)(void *context, const unsigned char *pixels, int count) = nullptr;
};

enum class ImageOutcome {
    Done,
    NotAnImage, // Or of a format that is not read.
    TooLarge,   // More pixels than are read of this format.
    Damaged,    // Or cut short.
    Ended,      // By one of the functions.
    NoLibrary,
};

using ReadImage = ImageOutcome (*)(const ImageJob &);

inline constexpr auto imageModuleName = "ardeno-images";
inline constexpr auto readImageName = "ardenoReadImage"; // A ReadImage.

} // namespace ardeno

// SPDX-License-Identifier: MIT
// Draws all captured frames into one picture: small, in rows, each with its time in the show below it.
#pragma once

#include "tools/capture/FrameSink.h"
#include "tools/capture/PngFile.h"

namespace capture
{

class ContactSheet : public FrameSink
{
public:
    // The tiles are `tilePixels` wide, in rows of `tileColumns`, and have the aspect ratio of the frames. The
    // file must be open and is borrowed.
    ContactSheet(OutputFile& outputFile, int tileColumns, int tilePixels);

    bool Begin(int width, int height, const FrameSelection& selection) override;
    bool Take(std::unique_ptr<Frame> frame) override;
    bool Finish(bool keep) override; // writes the file; tiles of frames that did not come stay empty

private:
    OutputFile& file;
    const int columns;
    const int tileWidth;
    int tileHeight;
    int64_t next;
    FrameRate rate;
    RgbPicture sheet;
};

} // namespace capture

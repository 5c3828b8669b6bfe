// SPDX-License-Identifier: MIT
// All frames taken on one picture, in rows, each above its time in the show.
#pragma once

#include "tools/capture/FrameSink.h"
#include "tools/capture/PngFile.h"

namespace capture
{

class ContactSheet : public FrameSink
{
public:
    // Tiles of that width in pixels, in rows of `tileColumns`. The frames' shape is kept. The file is open
    // and borrowed.
    ContactSheet(OutputFile& outputFile, int tileColumns, int tilePixels);

    bool Begin(int width, int height, const Schedule& schedule) override;
    bool Take(std::unique_ptr<Frame> frame) override;
    bool Finish(bool keep) override; // writes the file, as far as it got

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

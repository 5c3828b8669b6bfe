// SPDX-License-Identifier: MIT
// Counts flashes as the usual limit for flashing light does: a flash is a pair of opposing changes of relative luminance
// by a tenth of the brightest white or more, the darker of the two moments below 0.8. Light that flashes more than three
// times within a second over a quarter of a field of 10 degrees, somewhere in what is seen, can bring on a seizure in
// people with photosensitive epilepsy (WCAG 2.2, "general flash and red flash thresholds").
//
// CONVENTIONS
//   The picture is divided into Columns times Rows cells, and a cell's luminance is the mean of its pixels.
//   The field of 10 degrees is a third of the picture's width and a third of its height, as on a screen of 1024 by 768
//   pixels at the usual distance. What covers a quarter of the whole picture covers many such fields.
//   A change of a cell is complete when its luminance has come a tenth away from the extreme before it, however many
//   frames that takes. A change of a field is there when the cells that have become brighter within the last quarter of a
//   second outnumber those that have become darker by a quarter of the field's, or the other way round: what moves
//   brightens some cells and darkens others, and is no flash.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace flashes
{

const int Limit = 3; // flashes within a second

struct Peak {
    int flashes = 0;  // the most within any second
    double time = -1; // the end of the first such second; seconds of the show, -1 if there was no flash
};

// A time over which each second ends with more than Limit flashes over a quarter of some field.
struct Stretch {
    double from = 0; // seconds
    double to = 0;
    int flashes = 0; // the most of them within a second
};

class FlashMeter
{
public:
    static const int Columns = 64;
    static const int Rows = 48;

    // The first frame that comes is the one at startTime, in seconds of the show.
    FlashMeter(double framesPerSecond, double startTime);

    // The next frame: Columns * Rows relative luminances from 0 to 1, row by row.
    void Take(const std::vector<float>& luminances);

    Peak field;   // over a quarter of any field
    Peak picture; // over a quarter of the whole picture
    std::vector<Stretch> above;

private:
    struct Cell {
        float lowest = 0; // since the last change
        float highest = 0;
        int direction = 0;   // of the last change: 1 brighter, -1 darker, 0 there was none
        int64_t moment = -1; // its frame
    };
    // A rectangle of cells.
    struct PictureField {
        int left, top, columns, rows;
        int direction = 0;           // of its last change
        std::deque<int64_t> moments; // the frames of its changes within the last second
    };
    void Follow(Cell* cell, float luminance) const;
    void SumUp();
    void Follow(PictureField* area) const;
    int SumAt(int x, int y) const { return sums[std::size_t(y) * (Columns + 1) + std::size_t(x)]; }

    const double rate;
    const double start;
    int64_t frame;
    std::vector<Cell> cells;
    std::vector<int> sums; // of the directions of the cells above and to the left of each corner
    std::vector<PictureField> fields;
    PictureField whole;
};

} // namespace flashes

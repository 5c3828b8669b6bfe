// SPDX-License-Identifier: MIT
#include "tools/timeline/Type.h"

#include <cairo.h>
#include <gtest/gtest.h>

using namespace timeline;

TEST(TimelineType, AWidthIsTheSumOfTheAdvancesOfItsCharacters)
{
    EXPECT_DOUBLE_EQ(0, TextWidth("", EntryText));
    EXPECT_NEAR((0.722 + 0.735) * 11.5, TextWidth("AB", EntryText), 1e-9);
    EXPECT_NEAR(0.776 * 8.5, TextWidth("A", FlagText), 1e-9); // bold
    EXPECT_NEAR(3 * 11.5, TextWidth("\xc3\xa4\xe6\x9c\x88\xf0\x9f\x8c\x99", EntryText), 1e-9);
}

TEST(TimelineType, TheTableIsNoNarrowerThanTheFontsOfThisMachine)
{
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 8, 8);
    cairo_t* const cairo = cairo_create(surface);
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(cairo, options);
    for (int i = 0; i < TextStyleCount; i++) {
        const TextShape& shape = ShapeOf(TextStyle(i));
        cairo_select_font_face(cairo, shape.serif ? "serif" : "sans-serif",
                               shape.italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                               shape.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(cairo, shape.size);
        cairo_text_extents_t extents;
        for (const char* text :
             {"FX_Scroller_Intro", "WhiteFlashOverlay", "0123456789", "trigger_base", "moonwaltz.ogg"}) {
            cairo_text_extents(cairo, text, &extents);
            // A hundredth for the rounding of the font's own units.
            EXPECT_LE(extents.x_advance, TextWidth(text, TextStyle(i)) * 1.01) << text << " in style " << i;
        }
    }
    cairo_font_options_destroy(options);
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
}

TEST(TimelineType, ATextThatFitsIsLeftAlone)
{
    EXPECT_EQ("FX_Clouds", Elide("FX_Clouds", EntryText, TextWidth("FX_Clouds", EntryText)));
}

TEST(TimelineType, AnElidedTextFitsAndIsAsLongAsCanBe)
{
    const std::string text = "FX_VerticalScroller";
    for (double width = 0; width < TextWidth(text, EntryText); width += 0.7) {
        const std::string elided = Elide(text, EntryText, width);
        if (elided.empty())
            continue;
        EXPECT_LE(TextWidth(elided, EntryText), width);
        const size_t kept = elided.size() - 3;
        EXPECT_EQ(text.substr(0, kept) + "\xe2\x80\xa6", elided);
        EXPECT_GE(kept, 3u);
        EXPECT_GT(TextWidth(text.substr(0, kept + 1) + "\xe2\x80\xa6", EntryText), width);
    }
    EXPECT_EQ("", Elide(text, EntryText, 20)); // two characters and the ellipsis
    EXPECT_NE("", Elide(text, EntryText, 20, 1));
}

TEST(TimelineType, ElidingNeverCutsACharacterInTwo)
{
    const std::string moons = "\xc3\xa4\xc3\xb6\xc3\xbc\xe6\x9c\x88\xf0\x9f\x8c\x99\xf0\x9f\x8c\x99";
    for (double width = 0; width < 80; width += 1) {
        const std::string elided = Elide(moons, EntryText, width, 1);
        EXPECT_EQ(elided, Clean(elided));
    }
}

TEST(TimelineType, CleanKeepsWhatCanBeShown)
{
    const std::string good = "a\tb\n<&>\"' \xc3\xa4 \xe2\x80\x93 \xf0\x9f\x8c\x99";
    EXPECT_EQ(good, Clean(good));
}

TEST(TimelineType, CleanReplacesWhatIsNoTextOrHasNoPlaceInXml)
{
    const std::string r = "\xef\xbf\xbd";
    EXPECT_EQ(r + "x" + r + r, Clean(std::string("\0x\x01\x7f", 4)));
    EXPECT_EQ(r + "a", Clean("\xff"
                             "a"));
    EXPECT_EQ(r + "a", Clean("\xc3"
                             "a"));                      // cut short
    EXPECT_EQ(r + r, Clean("\xc0\xaf"));                 // overlong
    EXPECT_EQ(r + r, Clean("\xc2\x85"));                 // a control character of the second row
    EXPECT_EQ(r + r + r, Clean("\xed\xa0\x80"));         // half of a pair
    EXPECT_EQ(r + r + r, Clean("\xef\xbf\xbf"));         // no character
    EXPECT_EQ(r + r + r, Clean("\xe0\x80\x80"));         // overlong
    EXPECT_EQ(r + r + r + r, Clean("\xf4\x90\x80\x80")); // beyond the last
    EXPECT_EQ(r + r, Clean("\xe2\x80"));                 // cut short by the end
    EXPECT_EQ("\xc3\xa4" + r + "b\xc2\xa0", Clean("\xc3\xa4\xff"
                                                  "b\xc2\xa0")); // between good ones
}

TEST(TimelineType, APlacedTextHasItsBoxFromAscenderToDescender)
{
    const PlacedText text = PlaceText("0", BarText, Ink, 10, 100);
    EXPECT_DOUBLE_EQ(10, text.box.x);
    EXPECT_NEAR(100 - 0.94 * 12, text.box.y, 1e-9);
    EXPECT_NEAR(1.18 * 12, text.box.height, 1e-9);
    EXPECT_NEAR(0.636 * 12, text.box.width, 1e-9);
}

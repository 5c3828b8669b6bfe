// SPDX-License-Identifier: MIT
// What the waltz of the night is made of, read off its score: the theme and where it comes back, the dress of
// each section, the silences, the way home.
#include "art/music/Orchestra.h"
#include "art/music/ScoreReader.h"
#include "art/music/Theme.h"
#include "tests/Folders.h"
#include "tests/support/NightScript.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

using namespace waltz;

class NightScore : public testing::Test
{
protected:
    NightScore()
    {
        std::string error;
        EXPECT_TRUE(ReadScore(SOURCE_DIR "/art/music/score", score, error)) << error;
    }

    // What a part plays from bar `first` to before bar `end`.
    std::vector<Tone> Played(const std::string& part, int first, int end) const
    {
        std::vector<Tone> tones;
        for (const Tone& tone : score.Find(part)->tones)
            if (tone.beat > first * 3 - 1e-6 && tone.beat < end * 3 - 1e-6)
                tones.push_back(tone);
        return tones;
    }

    std::set<std::string> PartsIn(int first, int end) const
    {
        std::set<std::string> parts;
        for (const Voice& voice : score.voices)
            if (!Played(voice.part, first, end).empty())
                parts.insert(voice.part);
        return parts;
    }

    const Section& Find(const std::string& name) const
    {
        for (const Section& section : score.sections)
            if (section.name == name)
                return section;
        ADD_FAILURE() << name;
        return score.sections[0];
    }

    Score score;
};

static std::vector<ThemeNote> Theme()
{
    return std::vector<ThemeNote>(std::begin(theme), std::end(theme));
}

TEST(TheTheme, IsEightBarsOfTwoPhrasesInDMinorAndEndsOnD)
{
    std::map<int, float> lengths;
    for (const ThemeNote& note : Theme()) {
        EXPECT_FLOAT_EQ(lengths[note.bar], note.beat) << "bar " << note.bar << " has no gap";
        lengths[note.bar] += note.length;
        static const int classes[] = {9, 11, 0, 2, 4, 5, 7};
        EXPECT_EQ(note.midi, 12 * (note.octave + 1) + classes[note.letter - 'A'] + note.accidental)
            << "what is drawn is what sounds";
        // The key signature has B flat and nothing else.
        EXPECT_EQ(note.accidental != (note.letter == 'B' ? -1 : 0), note.printedSign);
    }
    ASSERT_EQ(themeBars, int(lengths.size()));
    for (const auto& [bar, length] : lengths)
        EXPECT_FLOAT_EQ(beatsPerBar, length) << "bar " << bar;
    EXPECT_EQ(62 % 12, Theme().back().midi % 12);
    // Each chord stands under its tune: the first note of a bar is in the chord, or resolves into it.
    int consonant = 0;
    for (const ThemeNote& note : Theme()) {
        Chord chord;
        ASSERT_TRUE(ReadChord(themeHarmony[note.bar - 1], chord));
        EXPECT_EQ(chord.bass, themeBass[note.bar - 1] % 12);
        consonant += chord.Has(note.midi) ? 1 : 0;
    }
    EXPECT_GE(consonant, 13) << "of 18";
}

TEST(TheTheme, AndItsCounterMelodyMoveWhenTheOtherRests)
{
    std::set<float> beats;
    for (const ThemeNote& note : Theme())
        if (note.bar == 1 || note.bar == 3 || note.bar == 5 || note.bar == 7)
            beats.insert(float(note.bar * 3) + note.beat);
    for (const ThemeNote& note : counterMelody)
        if (note.bar < 7)
            beats.insert(float(note.bar * 3) + note.beat);
    for (const int bar : {1, 3, 5})
        for (int beat = 0; beat < 3; beat++)
            EXPECT_TRUE(beats.count(float(bar * 3 + beat))) << "bar " << bar << " beat " << beat;
}

TEST_F(NightScore, HasNineSectionsThatBeginWhereTheScenesBegin)
{
    ASSERT_EQ(9u, score.sections.size());
    EXPECT_EQ(207, score.Bars());
    const std::pair<const char*, const char*> scenes[] = {
        {"dusk", "FX_Scroller_Intro"}, {"clouds", "FX_Clouds"},  {"names", "FX_Credits"},
        {"painting", "FS_Image"},      {"village", "FX_Path"},   {"towers", "FX_Towers"},
        {"sand", "FX_Footprint"},      {"fish", "FX_RopeThing"},
    };
    const NightScript script;
    for (const auto& [section, effect] : scenes)
        EXPECT_EQ(Find(section).firstBar * 1800u, script.StartOf(effect)) << section;
    // The roll has an overlay of its own from there on, and the fish swims a bar into it.
    EXPECT_EQ(Find("home").firstBar * 1800u - 1, script.StopOf("BlackFlashOverlay"));
    EXPECT_EQ((Find("home").firstBar + 1) * 1800u, script.StopOf("FX_RopeThing"));
    EXPECT_EQ(207 * 1800u, script.end);
}

// The theme's own notes from bar `first` on, at a pitch of the part's own, in the part: how many of them are
// there.
static int ThemeNotesIn(const std::vector<Tone>& tones, int first, double pace, int transposition)
{
    int found = 0;
    for (const ThemeNote& note : Theme()) {
        const double beat = first * 3 + ((note.bar - 1) * 3 + double(note.beat)) * pace;
        found += std::any_of(tones.begin(), tones.end(), [&](const Tone& tone) {
            return std::abs(tone.beat - beat) < 1e-6 && tone.pitch == note.midi + transposition;
        });
    }
    return found;
}

TEST_F(NightScore, TheMusicBoxPlaysTheThemeFirstAndAlone)
{
    EXPECT_EQ(18, ThemeNotesIn(Played("musicbox", 8, 16), 8, 1, 12));
    EXPECT_EQ((std::set<std::string>{"musicbox", "wind"}), PartsIn(8, 16));
    // Four bars ahead it begins, and loses heart before the eighth note.
    EXPECT_LT(Played("musicbox", 0, 8).size(), 8u);
}

TEST_F(NightScore, TheThemeComesBackNoteForNoteOnThePianoTheStringsAndInTheVillage)
{
    EXPECT_EQ(18, ThemeNotesIn(Played("piano", 16, 24), 16, 1, 0));
    EXPECT_EQ(18, ThemeNotesIn(Played("violin", 32, 40), 32, 1, 0));
    EXPECT_GE(ThemeNotesIn(Played("reed", 105, 113), 105, 1, 0), 16) << "with a turn in bars 2 and 6";
    EXPECT_EQ(18, ThemeNotesIn(Played("musicbox", 105, 113), 105, 1, 12));
    EXPECT_EQ(18, ThemeNotesIn(Played("reed", 121, 129), 121, 1, 0));
    EXPECT_EQ(18, ThemeNotesIn(Played("piano", 181, 189), 181, 1, 0));
    EXPECT_GE(ThemeNotesIn(Played("reed", 153, 169), 153, 2, 0), 16) << "at half its pace in the sand";
    EXPECT_GE(ThemeNotesIn(Played("cello", 169, 173), 169, 1, -24), 8) << "in the belly of the fish";
}

// The figure of the theme's first bars, whatever its pitch: limping (1 + 2 beats, upward) and then dotted and
// falling.
static int LimpingBarsIn(const std::vector<Tone>& tones, double pace)
{
    int found = 0;
    for (size_t i = 0; i + 1 < tones.size(); i++)
        found += std::abs(std::fmod(tones[i].beat, 3)) < 1e-6 && tones[i].length == pace &&
                 std::abs(tones[i + 1].beat - tones[i].beat - pace) < 1e-6 &&
                 tones[i + 1].length >= 1.5 * pace;
    return found;
}

TEST_F(NightScore, TheThemesLimpingStepIsInEverySection)
{
    const std::pair<const char*, std::vector<const char*>> leaders[] = {
        {"dusk", {"musicbox", "piano", "violin"}},
        {"clouds", {"violin", "reed"}},
        {"names", {"reed", "cello", "musicbox", "violin"}},
        {"painting", {"violin"}},
        {"village", {"reed", "viola"}},
        {"towers", {"reed"}},
        {"fish", {"cello", "piano"}},
        {"home", {"piano", "musicbox"}},
    };
    for (const auto& [name, parts] : leaders)
        for (const char* part : parts)
            EXPECT_GE(LimpingBarsIn(Played(part, Find(name).firstBar, Find(name).endBar), 1), 2)
                << part << " in " << name;
    EXPECT_GE(LimpingBarsIn(Played("reed", 153, 169), 2), 3) << "sand, at half pace";
}

// The long tune's figure, whatever its pitch: two beats and one.
static int LongBarsIn(const std::vector<Tone>& tones)
{
    int found = 0;
    for (size_t i = 0; i + 1 < tones.size(); i++)
        found += std::abs(std::fmod(tones[i].beat, 3)) < 1e-6 && tones[i].length == 2 &&
                 std::abs(tones[i + 1].beat - tones[i].beat - 2) < 1e-6 && tones[i + 1].length == 1;
    return found;
}

TEST_F(NightScore, TheLongTuneIsHeardInFiveSectionsAndByFourSingers)
{
    EXPECT_GE(LongBarsIn(Played("reed", 24, 32)), 6);
    EXPECT_GE(LongBarsIn(Played("reed", 60, 63)) + LongBarsIn(Played("violin", 63, 69)), 6);
    EXPECT_GE(LongBarsIn(Played("solo", 97, 105)), 4);
    EXPECT_GE(LongBarsIn(Played("violin", 113, 121)), 7);
    EXPECT_GE(LongBarsIn(Played("violin", 129, 137)), 6);
    EXPECT_GE(LongBarsIn(Played("violin", 189, 197)), 7);
}

TEST_F(NightScore, TheThemesTwoRhythmsLeaveHalfOfTheNightToOthers)
{
    // A beat and two, or one and a half, a half and one, in any part that leads.
    int bars = 0;
    for (int bar = 0; bar < score.Bars(); bar++) {
        bool cell = false;
        for (size_t i = 0; i < score.voices.size(); i++) {
            std::vector<double> onsets;
            for (const Tone& tone : Played(score.voices[i].part, bar, bar + 1))
                onsets.push_back(tone.beat - bar * 3);
            cell = cell || (Orchestra()[i].melodic && (onsets == std::vector<double>{0, 1} ||
                                                       onsets == std::vector<double>{0, 1.5, 2}));
        }
        bars += cell ? 1 : 0;
    }
    EXPECT_LE(bars, 103) << "of 207";
    EXPECT_GE(bars, 70) << "it is still the theme's night";
}

TEST_F(NightScore, FromBar129TheLongTuneLiesOverTheThemeAndWhatCameBeforeHeldBack)
{
    EXPECT_GE(LimpingBarsIn(Played("reed", 129, 136), 1), 3);
    EXPECT_GE(LimpingBarsIn(Played("viola", 129, 136), 1), 3);
    for (int bar = 129; bar < 136; bar++) {
        int lowest = 999, highest = 0;
        for (const Tone& tone : Played("violin", bar, bar + 1))
            lowest = std::min(lowest, tone.pitch);
        for (const char* part : {"reed", "viola"})
            for (const Tone& tone : Played(part, bar, bar + 1))
                highest = std::max(highest, tone.pitch);
        EXPECT_GE(lowest, highest) << "bar " << bar;
    }
    // Everybody who plays in both is stronger from 129 on.
    for (const Voice& voice : score.voices)
        if (!Played(voice.part, 121, 128).empty() && !Played(voice.part, 129, 136).empty()) {
            EXPECT_LT(voice.dynamics.LevelAt(122 * 3), voice.dynamics.LevelAt(130 * 3)) << voice.part;
        }
}

TEST_F(NightScore, ThePaintingBelongsToOneCello)
{
    for (int bar = 97; bar < 105; bar++)
        EXPECT_FALSE(Played("solo", bar, bar + 1).empty()) << "bar " << bar;
    EXPECT_TRUE(Played("cello", 97, 105).empty()) << "the section is silent";
    EXPECT_TRUE(Played("solo", 0, 97).empty());
    EXPECT_TRUE(Played("solo", 105, 207).empty());
}

TEST_F(NightScore, APulseBeatsAheadOfTheDanceAtBar32)
{
    for (int bar = 28; bar < 32; bar++)
        for (const char* part : {"drum", "bass"}) {
            const std::vector<Tone> tones = Played(part, bar, bar + 1);
            ASSERT_FALSE(tones.empty()) << part << " in bar " << bar;
            EXPECT_DOUBLE_EQ(bar * 3, tones[0].beat);
        }
    EXPECT_TRUE(Played("drum", 0, 28).empty());
    const Dynamics& drum = score.Find("drum")->dynamics;
    EXPECT_LT(drum.LevelAt(28 * 3), drum.LevelAt(31 * 3)) << "and grows";
}

TEST_F(NightScore, TheTowersBreakTheTheme)
{
    // The box out of tune has no four notes of it in a row, and no bar of the section has a major or minor
    // chord.
    for (int from = 137; from + 8 <= 153; from++)
        EXPECT_LE(ThemeNotesIn(Played("brokenbox", 137, 153), from, 1, 12), 7);
    EXPECT_GE(Played("brokenbox", 137, 153).size(), 12u);
    for (int bar = 137; bar < 153; bar++)
        EXPECT_EQ(5u, score.HarmonyAt(bar * 3)->chord.tones.size()) << "bar " << bar;
}

TEST_F(NightScore, EverySectionHasADressOfItsOwn)
{
    std::map<std::set<std::string>, std::string> dresses;
    for (const Section& section : score.sections) {
        const std::set<std::string> parts = PartsIn(section.firstBar, section.endBar);
        EXPECT_GE(parts.size(), 5u) << section.name;
        EXPECT_TRUE(dresses.emplace(parts, section.name).second)
            << section.name << " is dressed as " << dresses[parts];
    }
    // What only one place has.
    EXPECT_EQ((std::set<std::string>{"towers"}), [this] {
        std::set<std::string> names;
        for (const Section& section : score.sections)
            if (!Played("brokenbox", section.firstBar, section.endBar).empty())
                names.insert(section.name);
        return names;
    }());
    for (const char* part : {"shore"}) {
        EXPECT_FALSE(Played(part, 153, 169).empty());
        EXPECT_TRUE(Played(part, 0, 153).empty());
    }
    EXPECT_TRUE(Played("steps", 0, 153).empty());
    EXPECT_TRUE(Played("steps", 169, 207).empty());
    EXPECT_TRUE(Played("drum", 97, 105).empty()) << "nothing is struck in the painting";
    EXPECT_TRUE(Played("bass", 97, 105).empty());
}

TEST_F(NightScore, TheBassWalksThroughNamesVillageAndHome)
{
    for (const auto& [first, end] : {std::pair(73, 85), std::pair(105, 135), std::pair(189, 197)}) {
        for (int bar = first; bar < end; bar++) {
            const std::vector<Tone> tones = Played("bass", bar, bar + 1);
            ASSERT_EQ(3u, tones.size()) << "bar " << bar;
            std::set<int> pitches;
            for (const Tone& tone : tones)
                pitches.insert(tone.pitch);
            EXPECT_GE(pitches.size(), 2u) << "bar " << bar << " stands still";
            // The first note carries the chord.
            EXPECT_EQ(score.HarmonyAt(bar * 3)->chord.bass, tones[0].pitch % 12) << "bar " << bar;
        }
    }
}

TEST_F(NightScore, ThereIsSilenceWhereItCounts)
{
    // Behind the chord that breaks the village off, and behind the two in the face of the fish.
    const auto strokes = [this](double from, double end) {
        std::map<std::string, int> count;
        for (const Voice& voice : score.voices)
            for (const Tone& tone : voice.tones)
                if (tone.beat > from + 1e-6 && tone.beat < end - 1e-6)
                    ++count[voice.part];
        return count;
    };
    EXPECT_TRUE(strokes(136 * 3, 137 * 3).empty());
    EXPECT_EQ((std::map<std::string, int>{{"musicbox", 2}}), strokes(177 * 3, 179 * 3));
    const std::map<std::string, int> behind = strokes(179 * 3, 181 * 3);
    EXPECT_EQ((std::map<std::string, int>{{"musicbox", 1}}), behind);
}

TEST_F(NightScore, ItWandersToFAndEFlatAndIsHomeInDMajorOnlyAtTheEnd)
{
    const auto has = [this](int first, int end, const std::string& symbol) {
        for (const ChordSpan& span : score.harmony)
            if (span.beat >= first * 3 && span.beat < end * 3 && span.chord.symbol == symbol)
                return true;
        return false;
    };
    EXPECT_TRUE(has(48, 60, "F"));
    EXPECT_TRUE(has(97, 105, "Eb"));
    EXPECT_TRUE(has(129, 137, "F"));
    EXPECT_FALSE(has(0, 200, "D")) << "no D major before bar 200";
    EXPECT_EQ("D", score.HarmonyAt(200 * 3)->chord.symbol);
}

TEST_F(NightScore, TheLastBarsLeaveTheThemeOpenOnItsFirstNoteAndNothingIsStruckBehindIt)
{
    const std::vector<Tone> box = Played("musicbox", 201, 207);
    ASSERT_FALSE(box.empty());
    EXPECT_EQ(theme[0].midi + 12, box.back().pitch);
    EXPECT_DOUBLE_EQ(205 * 3, box.back().beat);
    EXPECT_DOUBLE_EQ(3, box.back().length);
    // Nothing but the box moves in the last three bars.
    for (const Voice& voice : score.voices)
        if (voice.part != "musicbox" && voice.part != "wind") {
            EXPECT_LE(Played(voice.part, 204, 207).size(), 2u) << voice.part;
        }
    for (const Voice& voice : score.voices)
        EXPECT_TRUE(Played(voice.part, 206, 207).empty()) << voice.part;
}

TEST_F(NightScore, NoBarIsEmptyAndEveryPartKeepsToItsReach)
{
    for (int bar = 0; bar < score.Bars(); bar++) {
        EXPECT_NE(nullptr, score.HarmonyAt(bar * 3)) << "bar " << bar;
        bool sounds = false;
        for (const Voice& voice : score.voices)
            for (const Tone& tone : voice.tones)
                sounds =
                    sounds || (tone.beat < (bar + 1) * 3 - 1e-6 && tone.beat + tone.length > bar * 3 + 1e-6);
        EXPECT_TRUE(sounds) << "bar " << bar;
    }
    for (size_t i = 0; i < score.voices.size(); i++) {
        EXPECT_FALSE(score.voices[i].tones.empty()) << Orchestra()[i].name << " has nothing to play";
        for (const Tone& tone : score.voices[i].tones) {
            EXPECT_GE(tone.pitch, Orchestra()[i].low) << Orchestra()[i].name << " at beat " << tone.beat;
            EXPECT_LE(tone.pitch, Orchestra()[i].high) << Orchestra()[i].name << " at beat " << tone.beat;
            EXPECT_GT(tone.length, 0);
        }
    }
}

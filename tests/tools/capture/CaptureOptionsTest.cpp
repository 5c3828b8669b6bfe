// SPDX-License-Identifier: MIT
// What marlinex-capture refuses, before it opens anything of GL. One line on standard error, exit status 2.
#include "tests/support/CaptureFixture.h"

class CaptureOptions : public CaptureFixture
{
protected:
    std::string Refusal(const std::vector<std::string>& words)
    {
        const ProgramRun run = RunProgram("marlinex-capture", words, {"DISPLAY="}, PathOf(""));
        EXPECT_EQ(2, run.status);
        EXPECT_EQ("", run.output);
        const std::string begin = "marlinex-capture: ";
        EXPECT_EQ(0u, run.errors.find(begin)) << run.errors;
        EXPECT_EQ(run.errors.size() - 1, run.errors.find('\n')) << run.errors;
        return run.errors.size() > begin.size()
                   ? run.errors.substr(begin.size(), run.errors.size() - begin.size() - 1)
                   : "";
    }
};

TEST_F(CaptureOptions, ThatMakeNoSenseAreRefusedWithAReason)
{
    const struct {
        std::vector<std::string> words;
        const char* reason;
    } rows[] = {
        {{}, "say where to write, with -o (--help tells more)"},
        {{"-o", "x.mp4", "--size", "640"},
         "option --size needs two numbers of 1 to 16384 such as 640x480, not \"640\""},
        {{"-o", "x.mp4", "--size", "0x480"},
         "option --size needs two numbers of 1 to 16384 such as 640x480, not \"0x480\""},
        {{"-o", "x.mp4", "--size", "641x480"}, "an MP4 needs an even width and an even height"},
        {{"-o", "x.mp4", "--rate", "29.97"},
         "option --rate needs a number such as 60, or a fraction such as 60000/1001, not \"29.97\""},
        {{"-o", "x.mp4", "--from", "soon"},
         "option --from needs a time such as 90.5 or 1:30.5, not \"soon\""},
        {{"-o", "x.mp4", "--to", "-1"}, "option --to needs a time such as 90.5 or 1:30.5, not \"-1\""},
        {{"-o", "x.mp4", "--from", "5", "--to", "5"}, "nothing lies between --from and --to"},
        {{"-o", "x/", "--every", "0"}, "option --every needs a time above 0"},
        {{"-o", "x.mp4", "--every", "1"}, "option --every is for pictures: a video has all frames"},
        {{"-o", "x.mp4", "--segment", "0/3"},
         "option --segment needs the part and the number of parts such as 1/4, not \"0/3\""},
        {{"-o", "x.mp4", "--segment", "4/3"},
         "option --segment needs the part and the number of parts such as 1/4, not \"4/3\""},
        {{"-o", "x/", "--segment", "1/3", "--every", "1"},
         "option --segment goes with all frames, not with --sheet or --every"},
        {{"-o", "x.png"},
         "one PNG file can't hold a show: -o frames/ makes numbered ones, --sheet an overview"},
        {{"-o", "x-%s.png"},
         "a pattern has one number such as %05d in its name, and %% for a per cent sign: \"x-%s.png\" has "
         "not"},
        {{"-o", "x-%05d"},
         "the end of the name says what to make, such as show.mp4 or night-%05d.png: \"x-%05d\" has none"},
        {{"-o", "x.mp4", "--sheet"},
         "a sheet is a PNG file: -o needs a name that ends in .png, not \"x.mp4\""},
        {{"-o", "x.mp4", "--threads", "0"}, "option --threads needs a whole number of 1 to 256, not \"0\""},
        {{"-o", "x.webp", "--join", "a.webp"},
         "a moving picture is made in one piece: --segment and --join are for videos"},
        {{"-o", "x.webp", "--segment", "1/2"},
         "a moving picture is made in one piece: --segment and --join are for videos"},
        {{"-o", "x.mp4", "--join"}, "option --join needs the parts, in their order"},
        {{"-o", "x/", "--join", "a.mp4"},
         "option --join makes a video of videos; numbered pictures need no joining"},
        {{"-o", "x.mp4", "--join", "--segment", "1/2", "a.mp4"},
         "option --join takes all parts, so --segment has no place beside it"},
        {{"-o", "x.mp4", "a.txt", "b.txt"}, "\"b.txt\" is one script too many"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.reason, Refusal(row.words));
}

TEST_F(CaptureOptions, AScriptThatIsNotThereOrIsNoTextIsRefused)
{
    EXPECT_EQ("gone.txt: No such file or directory", Refusal({"-o", "x.mp4", "gone.txt"}));
    EXPECT_EQ("Data: Is a directory", Refusal({"-o", "x.mp4", "Data"}));
    EXPECT_EQ("/dev/zero: File too large", Refusal({"-o", "x.mp4", "/dev/zero"}));
}

TEST_F(CaptureOptions, AMissingDataDirectoryIsRefused)
{
    WriteFlashShow(500);
    for (const char* name : {"gone", "Data/script.txt"})
        EXPECT_EQ(std::string("the data directory can't be read: ") + name +
                      (name[0] == 'g' ? ": No such file or directory" : ": Not a directory"),
                  Refusal({"-o", "x.mp4", "--data", name, "Data/script.txt"}));
}

TEST_F(CaptureOptions, APlaceThatCanNotBeWrittenIsRefusedBeforeTheShowIsRead)
{
    WriteFlashShow(500);
    WriteFile("Data/script.txt", "[EFFECT]EffectName=Nobody;StartTime=0;StopTime=9;LayerID=1;");
    EXPECT_EQ("nowhere/x.mp4: No such file or directory", Refusal({"-o", "nowhere/x.mp4"}));
    EXPECT_EQ("nowhere/x.png: No such file or directory", Refusal({"-o", "nowhere/x.png", "--sheet"}));
    WriteFile("file", "");
    EXPECT_EQ("file/x.mkv: Not a directory", Refusal({"-o", "file/x.mkv"}));
}

TEST_F(CaptureOptions, APartBehindTheEndOfTheShowIsRefused)
{
    WriteFlashShow(1500);
    EXPECT_EQ("there is no frame in that part: the show is 0:01.5 long",
              Refusal({"-o", "x.mp4", "--from", "1.5"}));
    EXPECT_FALSE(Exists("x.mp4"));
}

TEST_F(CaptureOptions, AScriptWithMistakesFailsWithWhatTheBoxesSay)
{
    WriteFlashShow(500);
    WriteFile("bad.txt",
              "[EFFECT]EffectName=Nobody;StartTime=0;StopTime=9;LayerID=1;[MESSAGE]MessageText=x;");
    const ProgramRun run =
        RunProgram("marlinex-capture", {"-o", "x.mp4", "bad.txt"}, {"DISPLAY="}, PathOf(""));
    EXPECT_EQ(1, run.status);
    EXPECT_EQ(0u, run.errors.find(
                      "marlinex-capture: Marlinex 1.5 Error: Init: Bad: Unknown Effect Name!\n"
                      "marlinex-capture: Marlinex 1.5 Information: Script Parser: Info: Error in Message:"))
        << run.errors;
    WriteFile("empty.txt", "");
    const ProgramRun empty =
        RunProgram("marlinex-capture", {"-o", "x.mp4", "empty.txt"}, {"DISPLAY="}, PathOf(""));
    EXPECT_EQ(1, empty.status);
    EXPECT_EQ("marlinex-capture: empty.txt: the script puts nothing on the timeline\n", empty.errors);
    EXPECT_FALSE(Exists("x.mp4"));
}

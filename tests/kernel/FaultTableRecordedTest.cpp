// SPDX-License-Identifier: MIT
// Every file that the show is given, damaged in every way that files are: what is told, and whether the show
// goes on. The files are those of the effects' records, so that a new picture is among them by itself, and
// what the show takes besides: loading picture, script, music, start offset.
//
// Each case is a whole run, from the form to the tear-down, in a process of its own, so that a crash or a
// hang is an outcome with a name.
#include "kernel/DemoPlayer.h"
#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "kernel/System.h"
#include "platform/Events.h"
#include "platform/SoundOutputHooks.h"
#include "platform/SteppedClock.h"
#include "platform/dialogs/StartForm.h"
#include "platform/dialogs/StartFormHooks.h"
#include "tests/Folders.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/OddFiles.h"
#include "tests/support/ReadFile.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <sys/fsuid.h>
#include <sys/wait.h>
#include <unistd.h>

// ---- The table

enum Row { PictureRow, ModelRow, ProgramRow, ShaderRow, ScriptRow, MusicRow, OffsetRow };

// NoFile stands for all of OddFiles: a folder, a FIFO, an endless device, a link to itself or to nothing.
enum Fault { Missing, Unreadable, NoFile, Empty, Cut, Scrambled, FaultCount };
static const char* const faultNames[] = {"Missing", "Unreadable", "NoFile", "Empty", "Cut", "Scrambled"};

enum Ending {
    Plays,      // to the end of the timeline
    EndsOnLoad, // everything is loaded, then the quit takes effect ahead of the first frame
    NoShow      // nothing is loaded
};

struct Answer {
    Ending ending;
    const char* caption; // of every box, behind "Marlinex 1.5 "; empty: there is no box at all
    const char* body;    // how it begins; % is the file's path, $ its bare name
};

// What the graphics driver says to a damaged source, since the recorder compiles nothing.
#define DRIVERS_WORDS "0:1: syntax error"

// clang-format off
static const Answer silence    = {Plays,      "",                              ""};
static const Answer badPicture = {EndsOnLoad, "Error: Texture Loader",         "Bad: %: Could not load texture. \n"};
static const Answer notFound   = {EndsOnLoad, "Error: File Not Found!",        "Bad: %\r\n"};
static const Answer badProgram = {Plays,      "Error: Error",                  "Bad: " DRIVERS_WORDS "\r\n"};
static const Answer noShader   = {Plays,      "Error: GLSL Shader",            "Bad: Unable to open the following shader: %\r\n"};
static const Answer badShader  = {Plays,      "Error: Attach GLSL Shader",     "Bad: " DRIVERS_WORDS "\r\n"};
static const Answer noScript   = {NoShow,     "Error: File Not Found!",        "Bad: %\r\n"};
static const Answer badEntry   = {Plays,      "Information: Script Parser",    "Info: Error in Effect: \n"};
static const Answer noMusic    = {EndsOnLoad, "Error: FMOD Music Player",      "Bad: Cannot Open Music File: $\r\n"};

// An empty GLSL shader is left out of its program without a word. An empty source of the other family is
// compiled, and the driver finds no main in it. A script that is empty, or has no block in it, is a show
// without effects, which ends with its first frame. Half of a tune plays to where it breaks off. Half of this
// test's script ends within an entry.
static const Answer table[][FaultCount] = {
    // missing      unreadable   no file      empty        cut          scrambled
    {  badPicture,  badPicture,  badPicture,  badPicture,  badPicture,  badPicture },  // PictureRow
    {  silence,     silence,     silence,     silence,     silence,     silence    },  // ModelRow
    {  notFound,    notFound,    notFound,    badProgram,  badProgram,  badProgram },  // ProgramRow
    {  noShader,    noShader,    noShader,    silence,     badShader,   badShader  },  // ShaderRow
    {  noScript,    noScript,    noScript,    silence,     badEntry,    silence    },  // ScriptRow
    {  noMusic,     noMusic,     noMusic,     noMusic,     silence,     noMusic    },  // MusicRow
    {  silence,     silence,     silence,     silence,     silence,     silence    },  // OffsetRow
};
// clang-format on

// ---- The files

static const char* const common = "TheShow"; // stands for the files that no effect loads
static const char* const scriptFile = "script.txt";
static const char* const musicFile = "moonwaltz.ogg";
static const char* const offsetFile = "editoren_sind_fuer_clickscener.txt";

static const char* const commonScript =
    "[MUSIC] FileName=moonwaltz.ogg;\n"
    "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=3000; LayerID=1;\n"
    "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=3000; LayerID=2;\n"
    "[EFFECT] EffectName=WhiteFlashOverlay; StartTime=0; StopTime=3000; LayerID=3;\n";

struct TestedFile {
    std::string name;
    Row row;
};

static Row RowOf(FileKind kind)
{
    switch (kind) {
    case TextureFile:
        return PictureRow;
    case ModelFile:
        return ModelRow;
    case ProgramFile:
        return ProgramRow;
    case ShaderFile:
        return ShaderRow;
    }
    abort(); // a kind that the table has no row for
}

static std::vector<TestedFile> FilesOf(const std::string& key)
{
    if (key == common)
        return {{loadingPicture, PictureRow},
                {scriptFile, ScriptRow},
                {musicFile, MusicRow},
                {offsetFile, OffsetRow}};
    std::vector<TestedFile> files;
    for (const EffectFile& file : ListFiles(FindRecord(key)->files))
        files.push_back({file.name, RowOf(file.kind)});
    return files;
}

static std::vector<std::string> Keys()
{
    std::vector<std::string> keys = {common};
    for (const EffectRecord& row : ProductionEffects())
        if (!ListFiles(row.files).empty())
            keys.push_back(row.key);
    return keys;
}

// ---- One run

struct Outcome {
    std::string end; // "exit 0", or what else became of the process
    Ending ending;
    std::vector<platform::MessageBox> boxes;
};

static const unsigned patience = 30; // seconds, after which a run counts as hanging
static const int64_t frameLength = 500000000;
static const char fieldEnd = '\x1F';

class FaultTable : public ShowFixture, public testing::WithParamInterface<std::tuple<std::string, Fault>>
{
protected:
    FaultTable()
    {
        std::filesystem::permissions(PathOf(""), std::filesystem::perms(0755));
        std::filesystem::current_path(PathOf("")); // the start offset is looked for here
        const std::string& key = std::get<0>(GetParam());
        AddModelsAndShaders();
        AddPicture(loadingPicture);
        AddFile(offsetFile, "1000");
        for (const std::string& each : Keys()) // the script of one effect may show others
            for (const TestedFile& file : FilesOf(each))
                if (file.row == PictureRow)
                    AddPicture(file.name);
        if (key == common)
            std::filesystem::copy_file(SOURCE_DIR "/Data/moonwaltz.ogg", PathOf(musicFile));
        AddFile(scriptFile,
                key == common ? commonScript : ReadFile(SOURCE_DIR "/tests/shows/" + key + ".txt"));
    }
    ~FaultTable() override { std::filesystem::current_path("/"); }

    Fault fault = std::get<1>(GetParam());

    // The whole show in this process, but for its end.
    static Ending PlayShow(bool music, const TestedFile* damaged, Fault how)
    {
        gl::Reset(800, 600);
        gl::Pause();
        if (damaged)
            AnswerAsDriver(*damaged, how);
        UseNullWindows();
        gl::FollowNullWindows(); // takes the frame observer, so the clock is moved by hand below
        platform::UseSteppedClock();
        platform::UseSoundOutput(platform::SoundPulledByHand);
        platform::SetFrameObserver([](void*) { platform::StepClock(frameLength); }, nullptr);
        platform::AnswerStartForm([=](platform::StartForm& form) {
            form.Check(1007, music);
            return 1000; // "Go"
        });
        if (!BuildSystem() || !demoPlayer->LoadScript(scriptFile)) {
            ::TearDown();
            return NoShow;
        }
        static bool framesWereShown = false;
        NullWindowState().titleSet = [] { framesWereShown = true; };
        demoPlayer->Run();
        const bool ended = demoPlayer->state == PlayerEnded;
        ::TearDown();
        return framesWereShown && ended ? Plays : EndsOnLoad;
    }

    static void AnswerAsDriver(const TestedFile& file, Fault how)
    {
        if (file.row != ProgramRow && file.row != ShaderRow)
            return;
        if (how == Empty)
            gl::FailLink(DRIVERS_WORDS);
        if (how == Cut || how == Scrambled)
            gl::FailCompile(file.name.ends_with(".vp") ? GL_VERTEX_SHADER : GL_FRAGMENT_SHADER,
                            DRIVERS_WORDS);
    }

    // Root would read what is unreadable: a process that calls this reads files as nobody does.
    static void ReadAsNobody() { setfsuid(65534); }

    static bool CanStillBeRead(const std::string& path)
    {
        const pid_t child = fork();
        if (child == 0) {
            ReadAsNobody();
            _exit(open(path.c_str(), O_RDONLY) >= 0);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 1;
    }

    // PlayShow in a process of its own.
    Outcome PlayApart(const TestedFile* damaged)
    {
        int ends[2];
        if (pipe(ends) != 0)
            abort();
        const pid_t child = fork();
        if (child == 0) {
            alarm(patience);
            ReadAsNobody();
            const Ending ending = PlayShow(std::get<0>(GetParam()) == common, damaged, fault);
            std::string text = std::to_string(ending) + fieldEnd;
            for (const platform::MessageBox& box : boxes)
                text += box.caption + fieldEnd + box.body + fieldEnd;
            _exit(write(ends[1], text.data(), text.size()) == ssize_t(text.size()) ? 0 : 1);
        }
        close(ends[1]);
        std::string text;
        char part[4096];
        for (ssize_t got = read(ends[0], part, sizeof part); got > 0; got = read(ends[0], part, sizeof part))
            text.append(part, size_t(got));
        close(ends[0]);
        int status = 0;
        waitpid(child, &status, 0);
        return ReadOutcome(text, status);
    }

    static Outcome ReadOutcome(const std::string& text, int status)
    {
        Outcome outcome = {};
        if (WIFSIGNALED(status))
            outcome.end = WTERMSIG(status) == SIGALRM ? "it hangs" : strsignal(WTERMSIG(status));
        else
            outcome.end = "exit " + std::to_string(WEXITSTATUS(status));
        std::istringstream fields(text);
        std::string field;
        if (std::getline(fields, field, fieldEnd))
            outcome.ending = Ending(atoi(field.c_str()));
        platform::MessageBox box = {};
        while (std::getline(fields, box.caption, fieldEnd) && std::getline(fields, box.body, fieldEnd))
            outcome.boxes.push_back(box);
        return outcome;
    }

    // ---- The damage

    std::string ContentOf(const TestedFile& file) const
    {
        const std::string real = SOURCE_DIR "/Data/" + file.name;
        return ReadFile(file.row != ScriptRow && FileExists(real) ? real : PathOf(file.name));
    }

    // The ways in which the fault can come about; each damages the file, which is there.
    std::vector<std::pair<std::string, std::function<void()>>> WaysOf(const TestedFile& file)
    {
        const std::string path = PathOf(file.name);
        std::string content = ContentOf(file);
        switch (fault) {
        case Missing:
            return {{"missing", [=] { std::filesystem::remove(path); }}};
        case Unreadable:
            return {{"unreadable", [=] { std::filesystem::permissions(path, std::filesystem::perms(0)); }}};
        case Empty:
            content.clear();
            break;
        case Cut:
            content.resize(content.size() / 2);
            break;
        case Scrambled: {
            std::mt19937 random(13);
            for (size_t i = content.size(); i > 1; i--)
                std::swap(content[i - 1], content[random() % i]);
            break;
        }
        case NoFile: {
            std::vector<std::pair<std::string, std::function<void()>>> ways;
            for (const OddFile& odd : OddFiles())
                ways.emplace_back(odd.name, [=] {
                    std::filesystem::remove(path);
                    odd.make(path);
                });
            return ways;
        }
        case FaultCount:
            break;
        }
        return {{faultNames[fault], [=, this] { AddFile(file.name, content); }}};
    }

    std::string Filled(const char* pattern, const TestedFile& file) const
    {
        std::string text;
        for (const char* c = pattern; *c; c++)
            text += *c == '%' ? PathOf(file.name) : *c == '$' ? file.name : std::string(1, *c);
        return text;
    }

    void ExpectAnswer(const Answer& answer, const TestedFile& file, const Outcome& outcome)
    {
        EXPECT_EQ("exit 0", outcome.end);
        EXPECT_EQ(answer.ending, outcome.ending);
        EXPECT_EQ(answer.caption[0] == 0, outcome.boxes.empty());
        for (const platform::MessageBox& box : outcome.boxes) {
            EXPECT_EQ("Marlinex 1.5 " + std::string(answer.caption), box.caption);
            const std::string begin = Filled(answer.body, file);
            EXPECT_EQ(begin, box.body.substr(0, begin.size()));
        }
    }
};

TEST_P(FaultTable, TellsWhatBecomesOfTheShow)
{
    static_assert(std::size(table) == OffsetRow + 1);
    const Outcome whole = PlayApart(nullptr);
    ASSERT_EQ("exit 0", whole.end);
    ASSERT_EQ(Plays, whole.ending);
    ASSERT_TRUE(whole.boxes.empty()) << whole.boxes[0].body;

    for (const TestedFile& file : FilesOf(std::get<0>(GetParam()))) {
        const std::string path = PathOf(file.name), good = ReadFile(path);
        for (const auto& [way, damage] : WaysOf(file)) {
            SCOPED_TRACE(file.name + ": " + way);
            damage();
            if (fault == Unreadable && CanStillBeRead(path))
                GTEST_SKIP() << "nothing can be made unreadable to this user on this machine";
            ExpectAnswer(table[file.row][fault], file, PlayApart(&file));
            std::filesystem::remove(path);
            AddFile(file.name, good);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, FaultTable,
                         testing::Combine(testing::ValuesIn(Keys()),
                                          testing::Values(Missing, Unreadable, NoFile, Empty, Cut,
                                                          Scrambled)),
                         [](const testing::TestParamInfo<std::tuple<std::string, Fault>>& row) {
                             return std::get<0>(row.param) + "_" + faultNames[std::get<1>(row.param)];
                         });

TEST(FaultTableFiles, AreAllThatTheDataHolds)
{
    std::set<std::string> held, tested;
    for (const auto& entry : std::filesystem::directory_iterator(SOURCE_DIR "/Data"))
        held.insert(entry.path().filename());
    held.erase("LICENSE");
    for (const std::string& key : Keys())
        for (const TestedFile& file : FilesOf(key))
            if (file.row != OffsetRow) // of the working directory
                tested.insert(file.name);
    for (const std::string& file : held)
        EXPECT_TRUE(tested.count(file)) << "Data/" << file << " is a file that nothing loads";
    for (const std::string& file : tested)
        EXPECT_TRUE(held.count(file)) << "Data/" << file << " is missing";
}

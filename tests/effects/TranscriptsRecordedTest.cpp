// SPDX-License-Identifier: MIT
// Every effect, call by call: its Init, the frame at localTime 0 and later moments of a short show with all
// its messages, against tests/golden/calls. What a pass has to be and why is said in the tests of each
// effect; here it is that nothing else is sent, and in no other order.
#include "effects/BlackFlashOverlay.h"
#include "effects/FS_Image.h"
#include "effects/FX_Clouds.h"
#include "effects/FX_Credits.h"
#include "effects/FX_FlashHand.h"
#include "effects/FX_Footprint.h"
#include "effects/FX_Path.h"
#include "effects/FX_RopeThing.h"
#include "effects/FX_Scroller_Intro.h"
#include "effects/FX_Towers.h"
#include "effects/FX_VerticalScroller.h"
#include "effects/Transition_Fish.h"
#include "effects/WhiteFlashOverlay.h"

#include "math/Random.h"
#include "tests/support/recorder/EffectFixture.h"
#include "tests/support/recorder/Transcript.h"

class Transcripts : public EffectFixture
{
protected:
    static constexpr double step = 1.0 / 16;

    // Textures by the names of their pictures.
    static std::vector<std::string> Record()
    {
        const std::string bind = "glBindTexture(GL_TEXTURE_2D, ";
        std::vector<std::string> calls = gl::CallsWithVertices();
        for (std::string& call : calls)
            if (call.rfind(bind, 0) == 0 && call != bind + "0)")
                call = bind + gl::TextureLabel(GLuint(std::stoul(call.substr(bind.size())))) + ")";
        return gl::Transcript(calls);
    }
    // How a texture or a program gets to GL is the loaders' affair; which ones, with what, is the effect's.
    static std::vector<std::string> RecordInit()
    {
        std::vector<std::string> lines;
        for (const std::string& line : Record()) {
            bool loading = false;
            for (const char* start : {"glGenTextures", "glTex", "gluBuild", "glPixelStore",
                                      "glEnable(GL_TEXTURE_2D)", "glDisable(GL_TEXTURE_2D)", "glCreate",
                                      "glShaderSource", "glCompile", "glAttach", "glLink", "glGetObject"})
                loading = loading || line.rfind(start, 0) == 0;
            if (!loading)
                lines.push_back(line);
        }
        for (const std::string& request : TextureRequests())
            lines.push_back("texture " + request);
        for (const gl::ShaderObject& shader : gl::Shaders())
            lines.push_back("shader " + shader.source.substr(0, shader.source.find('\n')));
        return lines;
    }
    void Begin(Effect* effect, const std::string& newName)
    {
        name = newName;
        SeedRandom(1); // as at the start of the process
        Declare(effect);
        gl::ClearRecords();
        Init(effect);
        EXPECT_TRUE(gl::MatchesTranscript(RecordInit(), name + "-init"));
    }
    // Plays on to this localTime of the effect and looks at that frame.
    void Look(Effect* effect, double until)
    {
        while (effect->GetLocalTime() + step < until + step / 2 && until > 0)
            RunFor(effect, step, step);
        ShowFrame(effect, step);
        char moment[40];
        snprintf(moment, sizeof moment, "-%06.3f", until);
        EXPECT_TRUE(gl::MatchesTranscript(Record(), name + moment));
    }

    std::string name;
};

TEST_F(Transcripts, WhiteFlashOverlay)
{
    WhiteFlashOverlay flash;
    Begin(&flash, "WhiteFlashOverlay");
    Look(&flash, 0);
    Send(&flash, "flash", {2});
    Look(&flash, 0.25);
    Look(&flash, 0.75);
}

TEST_F(Transcripts, BlackFlashOverlay)
{
    BlackFlashOverlay flash;
    Begin(&flash, "BlackFlashOverlay");
    Look(&flash, 0);
    Send(&flash, "flash", {5});
    Look(&flash, 0.25);
    Look(&flash, 0.75);
}

TEST_F(Transcripts, FS_Image)
{
    FS_Image image("ochre_painting1.jpg");
    Begin(&image, "FS_Image");
    Look(&image, 0);
    Send(&image, "flash", {3});
    Send(&image, "fade");
    Look(&image, 1);
    Look(&image, 9);
}

TEST_F(Transcripts, FX_Scroller_Intro)
{
    FX_Scroller_Intro intro;
    Begin(&intro, "FX_Scroller_Intro");
    Look(&intro, 0);
    Look(&intro, 19);
    Send(&intro, "light_flash");
    Look(&intro, 20);
    Send(&intro, "fadein_logo");
    Look(&intro, 60);
    Send(&intro, "light_flash");
    Send(&intro, "fadeout");
    Look(&intro, 63);
    Look(&intro, 90);
}

TEST_F(Transcripts, FX_Clouds)
{
    FX_Clouds flight;
    Begin(&flight, "FX_Clouds");
    Look(&flight, 0);
    Send(&flight, "hand");
    Look(&flight, 0.25);
    Send(&flight, "blend");
    Send(&flight, "handFrakt");
    Look(&flight, 0.5);
    Send(&flight, "hand");
    Look(&flight, 44);
    Send(&flight, "fadeOut");
    Look(&flight, 45.75);
    Send(&flight, "fadeOut");
    Look(&flight, 46);
}

TEST_F(Transcripts, FX_Credits)
{
    FX_Credits credits;
    Begin(&credits, "FX_Credits");
    Look(&credits, 0);
    for (int message = 0; message < 8; message++) {
        Send(&credits, message < 7 ? "fade_in" : "fade_last_in");
        Look(&credits, 1.5 * (message + 1));
    }
    Send(&credits, "fade_out");
    Look(&credits, 12.5);
}

TEST_F(Transcripts, FX_Path)
{
    FX_Path path;
    Begin(&path, "FX_Path");
    Look(&path, 0);
    Look(&path, 7);
    Send(&path, "trigger_cam");
    Send(&path, "tree1");
    Look(&path, 8);
    Send(&path, "tree3");
    Send(&path, "tree2");
    for (int i = 0; i < 4; i++)
        Send(&path, "tree1");
    Look(&path, 8.75);
}

TEST_F(Transcripts, FX_Towers)
{
    FX_Towers flight;
    Begin(&flight, "FX_Towers");
    Look(&flight, 0);
    Look(&flight, 2);
    Send(&flight, "flash_line");
    Look(&flight, 2.0625);
    Look(&flight, 2.25);
}

TEST_F(Transcripts, Transition_Fish)
{
    Transition_Fish fish;
    Begin(&fish, "Transition_Fish");
    Look(&fish, 0);
    Look(&fish, 1.5);
    Look(&fish, 4);
}

TEST_F(Transcripts, FX_FlashHand)
{
    FX_FlashHand hand;
    Begin(&hand, "FX_FlashHand");
    Look(&hand, 0);
    Send(&hand, "flash");
    Look(&hand, 0.125);
    Look(&hand, 2);
}

TEST_F(Transcripts, FX_Footprint)
{
    FX_Footprint walk;
    Begin(&walk, "FX_Footprint");
    walk.marks[0].x = 123456; // which has no value of its own yet
    Look(&walk, 0);
    Send(&walk, "step");
    Look(&walk, 0.5);
    Send(&walk, "step");
    Look(&walk, 0.75);
    Send(&walk, "trigger_base");
    Look(&walk, 1);
}

TEST_F(Transcripts, FX_VerticalScroller)
{
    FX_VerticalScroller roll;
    Begin(&roll, "FX_VerticalScroller");
    Look(&roll, 0);
    Look(&roll, 7);
    Send(&roll, "stopScroll");
    Look(&roll, 7.25);
}

TEST_F(Transcripts, FX_RopeThing)
{
    FX_RopeThing fish;
    Begin(&fish, "FX_RopeThing");
    Look(&fish, 0);
    Send(&fish, "intro");
    Look(&fish, 1);
    Send(&fish, "front");
    Look(&fish, 1.5);
    Send(&fish, "shock");
    Look(&fish, 1.625);
}

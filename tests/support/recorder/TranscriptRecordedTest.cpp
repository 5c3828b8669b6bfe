// SPDX-License-Identifier: MIT
#include "tests/support/recorder/Transcript.h"

#include "tests/support/recorder/GLRecorder.h"

#include <GL/glew.h>

#include <filesystem>
#include <fstream>

typedef std::vector<std::string> Lines;

TEST(Transcript, BlocksAreIndentedAndAVertexStandsOnItsLine)
{
    EXPECT_EQ((Lines{"glPushMatrix()", "  glBegin(GL_POINTS)", "    glColor3f(1, 0, 0) glVertex2f(1, 2)",
                     "  glEnd()", "glPopMatrix()", "glPopMatrix()"}),
              gl::Transcript({"glPushMatrix()", "glBegin(GL_POINTS)", "glColor3f(1, 0, 0)",
                              "glVertex2f(1, 2)", "glEnd()", "glPopMatrix()", "glPopMatrix()"}));
}

static Lines Rising(int count)
{
    Lines calls;
    for (int i = 0; i < count; i++)
        calls.push_back("glTranslatef(" + std::to_string(i) + ", 0, 0)");
    return calls;
}

TEST(Transcript, ManyAlikeAreFolded)
{
    EXPECT_EQ(Rising(5), gl::Transcript(Rising(5)));
    // 2 to 5, each followed by two zeros: weights 1, 4, 7 and 10.
    EXPECT_EQ(
        (Lines{"glTranslatef(0, 0, 0)", "glTranslatef(1, 0, 0)", "... 4 more like that, 14.00000 92.00000"}),
        gl::Transcript(Rising(6)));
}

TEST(Transcript, RepeatedGroupsAreFoldedWithTheirNumbers)
{
    Lines calls;
    for (int i = 0; i < 7; i++)
        for (const char* call :
             {"glColor3f(1, 1, 1)", "glPushMatrix()", "glRotatef(90, 0, 1, 0)", "glPopMatrix()"})
            calls.push_back(call);
    const Lines folded = gl::Transcript(calls);
    ASSERT_EQ(5u, folded.size());
    EXPECT_EQ(0u, folded[4].find("... 6 more like that, 564.00000 "));
    calls[5 * 4 + 2] = "glRotatef(90, 0, 0, 1)"; // an axis that changes, with the same sum
    EXPECT_NE(folded, gl::Transcript(calls));
    calls[5 * 4 + 2] = "glScalef(90, 0, 1)"; // another call: not alike
    EXPECT_NE(folded.size(), gl::Transcript(calls).size());
}

class TranscriptFiles : public testing::Test
{
protected:
    void Keep(const Lines& lines) { EXPECT_TRUE(gl::MatchesTranscriptIn(folder, true, lines, "kept")); }
    bool Matches(const Lines& lines) { return bool(gl::MatchesTranscriptIn(folder, false, lines, "kept")); }

    // Of each test its own: they run side by side.
    const std::string folder =
        testing::TempDir() + "transcripts-" + testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(TranscriptFiles, NumbersMayDifferByTheirLastBitsAndNothingElseMay)
{
    Keep({"glRotatef(1000.5, 0, -1, 0)", "glEnable(GL_LIGHT0)"});
    EXPECT_TRUE(Matches({"glRotatef(1000.5001, 0.00001, -1, 0)", "glEnable(GL_LIGHT0)"}));
    EXPECT_FALSE(Matches({"glRotatef(1000.6, 0, -1, 0)", "glEnable(GL_LIGHT0)"}));
    EXPECT_FALSE(Matches({"glRotatef(1000.5, 0.0001, -1, 0)", "glEnable(GL_LIGHT0)"}));
    EXPECT_FALSE(Matches({"glRotatef(1000.5, 0, 1, 0)", "glEnable(GL_LIGHT0)"}));
    EXPECT_FALSE(Matches({"glRotatef(1000.5, 0, -1, 0)", "glEnable(GL_LIGHT1)"}));
    EXPECT_FALSE(Matches({"glEnable(GL_LIGHT0)", "glRotatef(1000.5, 0, -1, 0)"}));
    EXPECT_FALSE(Matches({"glRotatef(1000.5, 0, -1, 0)"}));
    EXPECT_FALSE(Matches({"glRotatef(1000.5, 0, -1, 0)", "glEnable(GL_LIGHT0)", "glEnd()"}));
}

TEST_F(TranscriptFiles, SumsOfManyMayDifferByTenTimesThat)
{
    Keep({"... 4 more like that, 0.00000 2000.00000"});
    EXPECT_TRUE(Matches({"... 4 more like that, 0.10000 2000.10000"})) << "of the larger one";
    EXPECT_FALSE(Matches({"... 4 more like that, 0.00000 2001.00000"}));
    EXPECT_FALSE(Matches({"... 5 more like that, 0.00000 2000.00000"}));
}

TEST_F(TranscriptFiles, AMissingOneFails)
{
    std::filesystem::remove(folder + "/kept.txt");
    EXPECT_FALSE(Matches({}));
}

TEST(Transcript, ShowsTheVerticesOfArrays)
{
    gl::Reset();
    const float places[4][2] = {{1, 2}, {3, 4}, {5, 6}, {7, 8}};
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, places);
    glColor4f(1, 0.5f, 0.25f, 1);
    glNewList(3, GL_COMPILE);
    glDrawArrays(GL_LINES, 2, 2);
    glEndList();
    gl::ClearRecords();
    glTexCoord2f(0.5f, 0);
    glDrawArrays(GL_POINTS, 1, 1);
    glCallList(3);
    EXPECT_EQ((std::vector<std::string>{
                  "glTexCoord2f(0.5, 0)", "glDrawArrays(GL_POINTS, 1, 1)",
                  "texCoord (0.5, 0, 0) colour (1, 0.5, 0.25, 1) normal (0, 0, 1) vertex (3, 4, 0)",
                  "glCallList(3)", "glDrawArrays(GL_LINES, 2, 2)",
                  "texCoord (0.5, 0, 0) colour (1, 0.5, 0.25, 1) normal (0, 0, 1) vertex (5, 6, 0)",
                  "texCoord (0.5, 0, 0) colour (1, 0.5, 0.25, 1) normal (0, 0, 1) vertex (7, 8, 0)"}),
              gl::CallsWithVertices());
}

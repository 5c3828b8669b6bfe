// SPDX-License-Identifier: MIT
// Arguments of calls, and calls as text.
#include "tests/support/recorder/GLContext.h"
#include "tests/support/recorder/GLText.h"

namespace gl
{

static Argument Numeric(Argument::Kind kind, double value)
{
    Argument argument;
    argument.kind = kind;
    argument.count = 1;
    argument.number = value;
    return argument;
}

static Argument Textual(const char* text)
{
    Argument argument;
    argument.kind = Argument::Text;
    argument.count = 1;
    argument.text = text;
    return argument;
}

Argument Arg(GLfloat value)
{
    return Numeric(Argument::FloatNumber, value);
}

Argument Arg(GLdouble value)
{
    return Numeric(Argument::Number, value);
}

Argument Arg(GLint value)
{
    return Numeric(Argument::Number, double(value));
}

Argument Arg(GLuint value)
{
    return Numeric(Argument::Number, double(value));
}

Argument Arg(long value)
{
    return Numeric(Argument::Number, double(value));
}

Argument Enum(GLenum value)
{
    return Numeric(Argument::Enumerant, double(value));
}

Argument Bool(GLboolean value)
{
    return Textual(value ? "GL_TRUE" : "GL_FALSE");
}

Argument Address(const void* pointer)
{
    return Textual(pointer ? "data" : "null");
}

// While nothing is kept, the text isn't made: it would cost more than the simulation.
static Argument MadeUp(const std::string& text)
{
    return Textual(Keeping() ? Intern(text) : "...");
}

Argument Mode(GLenum value)
{
    return MadeUp(ModeText(value));
}

Argument Factor(GLenum value)
{
    return MadeUp(FactorText(value));
}

Argument Word(const std::string& text)
{
    return MadeUp(text);
}

Argument Quoted(const std::string& text)
{
    return MadeUp("\"" + text + "\"");
}

static std::string Joined(const std::vector<std::string>& parts)
{
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : ", ") + part;
    return text;
}

static std::string FloatsText(const GLfloat* values, int count)
{
    std::vector<std::string> parts;
    for (int i = 0; i < count; i++)
        parts.push_back(FloatText(values[i]));
    return "{" + Joined(parts) + "}";
}

Argument List(const GLfloat* values, int count)
{
    if (count > 4)
        return Keeping() ? MadeUp(FloatsText(values, count)) : Textual("...");
    Argument argument;
    argument.kind = Argument::Floats;
    argument.count = count;
    for (int i = 0; i < count; i++)
        argument.values[i] = values[i];
    return argument;
}

Argument List(const GLdouble* values, int count)
{
    if (!Keeping())
        return Textual("...");
    std::vector<std::string> parts;
    for (int i = 0; i < count; i++)
        parts.push_back(NumberText(values[i]));
    return MadeUp("{" + Joined(parts) + "}");
}

Argument List(const GLint* values, int count)
{
    const std::vector<GLdouble> numbers(values, values + (count > 0 ? count : 0));
    return List(numbers.data(), count);
}

static std::string ArgumentText(const Argument& argument)
{
    switch (argument.kind) {
    case Argument::Number:
        return NumberText(argument.number);
    case Argument::FloatNumber:
        return FloatText(float(argument.number));
    case Argument::Floats:
        return FloatsText(argument.values, argument.count);
    case Argument::Enumerant:
        return EnumText(GLenum(argument.number));
    case Argument::Text:
        break;
    }
    return argument.text;
}

std::string Event::Text() const
{
    if (kind == EventSwap)
        return name;
    if (kind == EventContext)
        return name + (" " + std::to_string(context));
    std::vector<std::string> parts;
    for (const Argument& argument : arguments)
        parts.push_back(ArgumentText(argument));
    return name + ("(" + Joined(parts) + ")");
}

} // namespace gl

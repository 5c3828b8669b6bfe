// SPDX-License-Identifier: MIT
// Lights, materials and fog.
#include "tests/support/recorder/GLContext.h"

#include "tests/support/recorder/GLText.h"

using namespace gl;

static int ParameterCount(GLenum name)
{
    switch (name) {
    case GL_AMBIENT:
    case GL_DIFFUSE:
    case GL_SPECULAR:
    case GL_POSITION:
    case GL_EMISSION:
    case GL_AMBIENT_AND_DIFFUSE:
    case GL_LIGHT_MODEL_AMBIENT:
    case GL_FOG_COLOR:
        return 4;
    case GL_SPOT_DIRECTION:
        return 3;
    default:
        return 1;
    }
}

static Colour ColourOf(const std::vector<float>& v)
{
    return Colour(v[0], v[1], v[2], v[3]);
}

static void SetLight(Context& c, GLenum name, GLenum parameter, const std::vector<float>& v)
{
    if (name < GL_LIGHT0 || name >= GL_LIGHT0 + LightCount) {
        SetError(c, GL_INVALID_ENUM, "no such light");
        return;
    }
    Light& light = c.state.lights[name - GL_LIGHT0];
    c.changed = true;
    switch (parameter) {
    case GL_AMBIENT:
        light.ambient = ColourOf(v);
        break;
    case GL_DIFFUSE:
        light.diffuse = ColourOf(v);
        break;
    case GL_SPECULAR:
        light.specular = ColourOf(v);
        break;
    case GL_POSITION:
        light.given = Point(v[0], v[1], v[2], v[3]);
        light.position = c.modelview.back() * light.given;
        break;
    case GL_SPOT_DIRECTION:
        light.spotDirection = c.modelview.back() * Point(v[0], v[1], v[2], 0);
        break;
    case GL_SPOT_EXPONENT:
        light.spotExponent = v[0];
        break;
    case GL_SPOT_CUTOFF:
        light.spotCutoff = v[0];
        break;
    case GL_CONSTANT_ATTENUATION:
        light.constantAttenuation = v[0];
        break;
    case GL_LINEAR_ATTENUATION:
        light.linearAttenuation = v[0];
        break;
    case GL_QUADRATIC_ATTENUATION:
        light.quadraticAttenuation = v[0];
        break;
    default:
        SetError(c, GL_INVALID_ENUM);
    }
}

static bool SetOneMaterial(Material& material, GLenum parameter, const std::vector<float>& v)
{
    switch (parameter) {
    case GL_AMBIENT:
        material.ambient = ColourOf(v);
        return true;
    case GL_DIFFUSE:
        material.diffuse = ColourOf(v);
        return true;
    case GL_AMBIENT_AND_DIFFUSE:
        material.ambient = material.diffuse = ColourOf(v);
        return true;
    case GL_SPECULAR:
        material.specular = ColourOf(v);
        return true;
    case GL_EMISSION:
        material.emission = ColourOf(v);
        return true;
    case GL_SHININESS:
        material.shininess = v[0];
        return true;
    default:
        return false;
    }
}

static void SetMaterial(Context& c, GLenum face, GLenum parameter, const std::vector<float>& v)
{
    bool known = face == GL_FRONT || face == GL_BACK || face == GL_FRONT_AND_BACK;
    if (known && face != GL_BACK)
        known = SetOneMaterial(c.state.front, parameter, v);
    if (known && face != GL_FRONT)
        known = SetOneMaterial(c.state.back, parameter, v);
    if (!known)
        SetError(c, GL_INVALID_ENUM);
    c.changed = true;
}

static void SetLightModel(Context& c, GLenum parameter, const std::vector<float>& v)
{
    if (parameter == GL_LIGHT_MODEL_AMBIENT)
        c.state.lightModelAmbient = ColourOf(v);
    else if (parameter == GL_LIGHT_MODEL_LOCAL_VIEWER)
        c.state.localViewer = v[0] != 0;
    else if (parameter == GL_LIGHT_MODEL_TWO_SIDE)
        c.state.twoSided = v[0] != 0;
    else if (parameter != GL_LIGHT_MODEL_COLOR_CONTROL)
        SetError(c, GL_INVALID_ENUM);
    c.changed = true;
}

static void SetFog(Context& c, GLenum parameter, const std::vector<float>& v)
{
    if (parameter == GL_FOG_MODE)
        c.state.fogMode = GLenum(v[0]);
    else if (parameter == GL_FOG_DENSITY)
        c.state.fogDensity = v[0];
    else if (parameter == GL_FOG_START)
        c.state.fogStart = v[0];
    else if (parameter == GL_FOG_END)
        c.state.fogEnd = v[0];
    else if (parameter == GL_FOG_COLOR)
        c.state.fogColour = ColourOf(v);
    else if (parameter != GL_FOG_INDEX)
        SetError(c, GL_INVALID_ENUM);
    c.changed = true;
}

static std::vector<float> Floats(GLenum parameter, const GLfloat* values)
{
    return std::vector<float>(values, values + ParameterCount(parameter));
}

static std::vector<float> Floats(GLenum parameter, const GLint* values)
{
    return std::vector<float>(values, values + ParameterCount(parameter));
}

// The forms with one value are for parameters with one value.
static std::vector<float> Single(float value)
{
    return {value};
}

static void OnlySingle(Context& c, GLenum parameter, void (*set)(Context&, GLenum, const std::vector<float>&),
                       float value)
{
    if (ParameterCount(parameter) != 1)
        SetError(c, GL_INVALID_ENUM, "it has more than one value");
    else
        set(c, parameter, Single(value));
}

static Argument FogValue(GLenum parameter, float value)
{
    return parameter == GL_FOG_MODE ? Enum(GLenum(value)) : Arg(value);
}

extern "C" {

void glLightfv(GLenum light, GLenum parameter, const GLfloat* values)
{
    const std::vector<float> v = Floats(parameter, values);
    Do("glLightfv", {Enum(light), Enum(parameter), List(v.data(), int(v.size()))},
       [=](Context& c) { SetLight(c, light, parameter, v); });
}

// Colours as ints run over the whole range; nobody here sends them, so positions and scalars are enough.
void glLightiv(GLenum light, GLenum parameter, const GLint* values)
{
    const std::vector<float> v = Floats(parameter, values);
    Do("glLightiv", {Enum(light), Enum(parameter), List(values, int(v.size()))},
       [=](Context& c) { SetLight(c, light, parameter, v); });
}

void glLightf(GLenum light, GLenum parameter, GLfloat value)
{
    Do("glLightf", {Enum(light), Enum(parameter), Arg(value)}, [=](Context& c) {
        if (ParameterCount(parameter) != 1)
            SetError(c, GL_INVALID_ENUM, "it has more than one value");
        else
            SetLight(c, light, parameter, Single(value));
    });
}

void glLighti(GLenum light, GLenum parameter, GLint value)
{
    Do("glLighti", {Enum(light), Enum(parameter), Arg(value)}, [=](Context& c) {
        if (ParameterCount(parameter) != 1)
            SetError(c, GL_INVALID_ENUM, "it has more than one value");
        else
            SetLight(c, light, parameter, Single(float(value)));
    });
}

void glLightModelfv(GLenum parameter, const GLfloat* values)
{
    const std::vector<float> v = Floats(parameter, values);
    Do("glLightModelfv", {Enum(parameter), List(v.data(), int(v.size()))},
       [=](Context& c) { SetLightModel(c, parameter, v); });
}

void glLightModeliv(GLenum parameter, const GLint* values)
{
    const std::vector<float> v = Floats(parameter, values);
    Do("glLightModeliv", {Enum(parameter), List(values, int(v.size()))},
       [=](Context& c) { SetLightModel(c, parameter, v); });
}

void glLightModelf(GLenum parameter, GLfloat value)
{
    Do("glLightModelf", {Enum(parameter), Arg(value)},
       [=](Context& c) { OnlySingle(c, parameter, SetLightModel, value); });
}

void glLightModeli(GLenum parameter, GLint value)
{
    Do("glLightModeli", {Enum(parameter), Arg(value)},
       [=](Context& c) { OnlySingle(c, parameter, SetLightModel, float(value)); });
}

void glMaterialfv(GLenum face, GLenum parameter, const GLfloat* values)
{
    const std::vector<float> v = Floats(parameter, values);
    DoAnywhere("glMaterialfv", {Enum(face), Enum(parameter), List(v.data(), int(v.size()))},
               [=](Context& c) { SetMaterial(c, face, parameter, v); });
}

void glMaterialf(GLenum face, GLenum parameter, GLfloat value)
{
    DoAnywhere("glMaterialf", {Enum(face), Enum(parameter), Arg(value)}, [=](Context& c) {
        if (ParameterCount(parameter) != 1)
            SetError(c, GL_INVALID_ENUM, "it has more than one value");
        else
            SetMaterial(c, face, parameter, Single(value));
    });
}

void glMateriali(GLenum face, GLenum parameter, GLint value)
{
    glMaterialf(face, parameter, GLfloat(value));
}

void glColorMaterial(GLenum face, GLenum mode)
{
    Do("glColorMaterial", {Enum(face), Enum(mode)}, [=](Context& c) {
        c.state.colourMaterialFace = face;
        c.state.colourMaterialMode = mode;
        c.changed = true;
        if (c.state.Enabled(GL_COLOR_MATERIAL))
            SetColour(c, c.colour);
    });
}

void glShadeModel(GLenum mode)
{
    Do("glShadeModel", {Enum(mode)}, [=](Context& c) {
        if (mode != GL_FLAT && mode != GL_SMOOTH) {
            SetError(c, GL_INVALID_ENUM);
            return;
        }
        c.state.shadeModel = mode;
        c.changed = true;
    });
}

void glFogf(GLenum parameter, GLfloat value)
{
    Do("glFogf", {Enum(parameter), FogValue(parameter, value)},
       [=](Context& c) { OnlySingle(c, parameter, SetFog, value); });
}

void glFogi(GLenum parameter, GLint value)
{
    Do("glFogi", {Enum(parameter), FogValue(parameter, float(value))},
       [=](Context& c) { OnlySingle(c, parameter, SetFog, float(value)); });
}

void glFogfv(GLenum parameter, const GLfloat* values)
{
    const std::vector<float> v = Floats(parameter, values);
    Do("glFogfv", {Enum(parameter), List(v.data(), int(v.size()))},
       [=](Context& c) { SetFog(c, parameter, v); });
}

void glFogiv(GLenum parameter, const GLint* values)
{
    const std::vector<float> v = Floats(parameter, values);
    Do("glFogiv", {Enum(parameter), List(v.data(), int(v.size()))},
       [=](Context& c) { SetFog(c, parameter, v); });
}

} // extern "C"

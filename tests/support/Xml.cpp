// SPDX-License-Identifier: MIT
#include "tests/support/Xml.h"

#include <expat.h>

#include <cstdlib>
#include <sstream>

struct Parsing {
    XmlElement top; // holds the root
    std::vector<size_t> path;

    XmlElement& Current()
    {
        XmlElement* element = &top;
        for (const size_t child : path)
            element = &element->children[child];
        return *element;
    }
};

static void Begin(void* context, const char* name, const char** attributes)
{
    Parsing& parsing = *static_cast<Parsing*>(context);
    XmlElement element;
    element.name = name;
    for (; *attributes; attributes += 2)
        element.attributes[attributes[0]] = attributes[1];
    XmlElement& parent = parsing.Current();
    parent.children.push_back(element);
    parsing.path.push_back(parent.children.size() - 1);
}

static void End(void* context, const char*)
{
    static_cast<Parsing*>(context)->path.pop_back();
}

static void Characters(void* context, const char* text, int length)
{
    static_cast<Parsing*>(context)->Current().text.append(text, size_t(length));
}

bool ParseXml(const std::string& text, XmlElement* root, std::string* error)
{
    Parsing parsing;
    XML_Parser const parser = XML_ParserCreate(nullptr);
    XML_SetUserData(parser, &parsing);
    XML_SetElementHandler(parser, Begin, End);
    XML_SetCharacterDataHandler(parser, Characters);
    const bool good = XML_Parse(parser, text.data(), int(text.size()), 1) == XML_STATUS_OK;
    if (!good)
        *error = std::string(XML_ErrorString(XML_GetErrorCode(parser))) + " in line " +
                 std::to_string(XML_GetCurrentLineNumber(parser));
    XML_ParserFree(parser);
    if (good)
        *root = parsing.top.children[0];
    return good;
}

std::string XmlElement::operator[](const std::string& attribute) const
{
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? std::string() : found->second;
}

double XmlElement::Number(const std::string& attribute) const
{
    return atof((*this)[attribute].c_str());
}

static bool HasClass(const XmlElement& element, const std::string& wanted)
{
    std::istringstream classes(element["class"]);
    for (std::string each; classes >> each;)
        if (each == wanted)
            return true;
    return false;
}

static void Collect(const XmlElement& element, const std::string& name, const std::string& wantedClass,
                    std::vector<const XmlElement*>* all)
{
    for (const XmlElement& child : element.children) {
        if (child.name == name && (wantedClass.empty() || HasClass(child, wantedClass)))
            all->push_back(&child);
        Collect(child, name, wantedClass, all);
    }
}

std::vector<const XmlElement*> XmlElement::All(const std::string& wantedName,
                                               const std::string& wantedClass) const
{
    std::vector<const XmlElement*> all;
    Collect(*this, wantedName, wantedClass, &all);
    return all;
}

const XmlElement* XmlElement::Child(const std::string& wantedName) const
{
    for (const XmlElement& child : children)
        if (child.name == wantedName)
            return &child;
    return nullptr;
}

std::string XmlElement::Title() const
{
    const XmlElement* const title = Child("title");
    return title ? title->text : std::string();
}

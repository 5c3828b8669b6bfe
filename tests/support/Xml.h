// SPDX-License-Identifier: MIT
// A well-formed XML text as a tree, parsed by expat.
#pragma once

#include <map>
#include <string>
#include <vector>

struct XmlElement {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::string text; // of this element alone, not of those in it
    std::vector<XmlElement> children;

    std::string operator[](const std::string& attribute) const; // empty if it isn't there
    double Number(const std::string& attribute) const;

    // All elements below this one, in order, that have the name and, unless it is empty, the class.
    std::vector<const XmlElement*> All(const std::string& wantedName,
                                       const std::string& wantedClass = "") const;
    const XmlElement* Child(const std::string& wantedName) const; // the first; null if there is none
    std::string Title() const;                                    // text of the child <title>
};

// False if it is not well-formed; *error then says what and in which line.
bool ParseXml(const std::string& text, XmlElement* root, std::string* error);

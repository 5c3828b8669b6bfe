// SPDX-License-Identifier: MIT
// What bash and zsh offer when the Tab key is pressed after a program's name, from the table that --help is made of.
#include "tools/cli/CommandLine.h"

#include <algorithm>
#include <iterator>

namespace cli
{

enum ValueKind { OtherValue, FileValue, FolderValue };

// What a value is, by the word that stands for it in --help.
static ValueKind KindOf(const std::string& word)
{
    static const char* const files[] = {"FILE", "PATH", "PICTURE", "JPEG"};
    static const char* const folders[] = {"DIR", "FOLDER"};
    if (std::find(std::begin(files), std::end(files), word) != std::end(files))
        return FileValue;
    return std::find(std::begin(folders), std::end(folders), word) != std::end(folders) ? FolderValue
                                                                                        : OtherValue;
}

static std::string Replaced(std::string text, const std::string& from, const std::string& to)
{
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

// "--output|-o", or with options divided by `between`.
static std::string NamesOf(const Option& option, const char* between)
{
    return std::string("--") + option.name +
           (option.letter ? between + std::string("-") + option.letter : "");
}

static std::string ValuesOf(const std::vector<Option>& options, ValueKind kind)
{
    std::string names;
    for (const Option& option : options)
        if (option.value && KindOf(option.value) == kind)
            names += (names.empty() ? "" : "|") + NamesOf(option, "|");
    return names;
}

// Bash divides words at "=" too, so that after "--data=" the word before is "=".
std::string CommandLine::BashCompletion() const
{
    const std::string function = "_" + Replaced(name, "-", "_");
    std::string script = "# Completion of " + name + " for bash, made from its table of options.\n" +
                         function +
                         "()\n{\n"
                         "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]}\n"
                         "    if [[ $word == = ]]; then\n"
                         "        word=\n"
                         "    elif [[ $before == = ]]; then\n"
                         "        before=${COMP_WORDS[COMP_CWORD-2]}\n"
                         "    fi\n"
                         "    COMPREPLY=()\n"
                         "    case $before in\n";
    const std::string folders = ValuesOf(options, FolderValue);
    const std::string files = ValuesOf(options, FileValue);
    const std::string others = ValuesOf(options, OtherValue);
    if (!folders.empty())
        script += "    " + folders +
                  ")\n        compopt -o filenames\n"
                  "        mapfile -t COMPREPLY < <(compgen -d -- \"$word\")\n        return ;;\n";
    if (!files.empty())
        script += "    " + files +
                  ")\n        compopt -o filenames\n"
                  "        mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n        return ;;\n";
    if (!others.empty())
        script += "    " + others + ")\n        return ;;\n";
    script += "    esac\n"
              "    if [[ $word == -* ]]; then\n"
              "        mapfile -t COMPREPLY < <(compgen -W '";
    for (size_t i = 0; i < options.size(); i++)
        script += (i ? " --" : "--") + std::string(options[i].name) + (options[i].value ? "=" : "");
    script += "' -- \"$word\")\n"
              "        [[ ${COMPREPLY[0]-} == *= ]] && compopt -o nospace\n";
    if (!operandForm.empty())
        script += "    else\n"
                  "        compopt -o filenames\n"
                  "        mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n";
    return script + "    fi\n}\ncomplete -F " + function + " " + name + "\n";
}

// The first sentence of a help text, as zsh has it between brackets in single quotes.
static std::string Explanation(const std::string& help)
{
    std::string text = help.substr(0, help.find(". "));
    if (text.ends_with('.'))
        text.pop_back();
    for (const char* special : {"\\", "[", "]", ":"})
        text = Replaced(text, special, std::string("\\") + special);
    return Replaced(text, "'", "'\\''");
}

std::string CommandLine::ZshCompletion() const
{
    std::string script = "#compdef " + name + "\n# Completion of " + name +
                         " for zsh, made from its table of options.\n_arguments -s -S";
    for (const Option& option : options) {
        const std::string word = std::string("--") + option.name + (option.value ? "=" : "");
        script += " \\\n    ";
        if (option.letter)
            script += "'(" + NamesOf(option, " ") + ")'{-" + option.letter + (option.value ? "+" : "") + "," +
                      word + "}'";
        else
            script += "'" + word;
        script += "[" + Explanation(option.help) + "]";
        if (option.value) {
            const ValueKind kind = KindOf(option.value);
            script += std::string(":") + option.value + ":" +
                      (kind == FileValue     ? "_files"
                       : kind == FolderValue ? "_files -/"
                                             : " ");
        }
        script += "'";
    }
    if (!operandForm.empty())
        script += std::string(" \\\n    '") + (operandForm.find("...") != std::string::npos ? "*" : "1") +
                  ":file:_files'";
    return script + "\n";
}

} // namespace cli

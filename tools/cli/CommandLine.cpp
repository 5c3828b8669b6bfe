// SPDX-License-Identifier: MIT
#include "tools/cli/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace cli
{

static const size_t helpWidth = 80;
static const size_t helpColumn = 24; // where the sentences of --help begin

CommandLine::CommandLine(const char* programName, const char* summaryText, const char* operandText,
                         std::vector<Option> table)
    : exitStatus(ExitClean), name(programName), summary(summaryText), operandForm(operandText),
      options(std::move(table))
{
    options.push_back({"help", 'h', nullptr, "Show this help and end."});
    options.push_back({"version", 0, nullptr, "Show the version and end."});
}

bool CommandLine::Read(int argc, const char* const* argv, FILE* out, FILE* err)
{
    bool optionsEnded = false;
    for (int i = 1; i < argc; i++) {
        const std::string word = argv[i];
        if (optionsEnded || word.size() < 2 || word[0] != '-') {
            operands.push_back(word);
            continue;
        }
        if (word == "--") {
            optionsEnded = true;
            continue;
        }

        // --name, --name=value, -l, -lvalue
        const bool isLong = word[1] == '-';
        const size_t equals = isLong ? word.find('=') : std::string::npos;
        const std::string written = isLong ? word.substr(0, equals) : word.substr(0, 2);
        const Option* const option = isLong ? FindName(written.substr(2)) : FindLetter(word[1]);
        const bool hasValue = isLong ? equals != std::string::npos : word.size() > 2;
        std::string value;
        if (hasValue)
            value = word.substr(isLong ? equals + 1 : 2);

        if (!option) {
            Fail("unknown option " + written + " (--help lists what there is)", err);
            return false;
        }
        if (hasValue && !option->value) {
            Fail("option " + written + " takes no value", err);
            return false;
        }
        if (option->value && !hasValue) {
            if (i + 1 == argc) {
                Fail("option " + written + " needs a value, " + option->value, err);
                return false;
            }
            value = argv[++i];
        }
        if (!strcmp(option->name, "help") || !strcmp(option->name, "version")) {
            const std::string text = !strcmp(option->name, "help") ? HelpText() : VersionText() + "\n";
            fputs(text.c_str(), out);
            exitStatus = ExitClean;
            return false;
        }
        given.push_back({option, value});
    }
    return CheckOperands(err);
}

bool CommandLine::CheckOperands(FILE* err)
{
    const bool optional = operandForm.empty() || operandForm[0] == '[';
    const bool many = operandForm.find("...") != std::string::npos;
    if (operands.empty() && !optional) {
        Fail("a " + operandForm + " is missing (--help tells more)", err);
        return false;
    }
    const size_t most = operandForm.empty() ? 0 : 1;
    if (operands.size() > most && !many) {
        Fail("\"" + operands[most] + "\" is one operand too many", err);
        return false;
    }
    return true;
}

bool CommandLine::Has(const std::string& wanted) const
{
    return Last(wanted) != nullptr;
}

std::string CommandLine::Value(const std::string& wanted, const std::string& otherwise) const
{
    const Given* const found = Last(wanted);
    return found ? found->value : otherwise;
}

bool CommandLine::WholeNumber(const std::string& wanted, int64_t low, int64_t high, int64_t* number,
                              FILE* err)
{
    const Given* const found = Last(wanted);
    if (!found)
        return true;
    const char* const end = found->value.data() + found->value.size();
    int64_t value = 0;
    const auto [stop, error] = std::from_chars(found->value.data(), end, value);
    if (error == std::errc() && stop == end && value >= low && value <= high) {
        *number = value;
        return true;
    }
    Fail("option --" + wanted + " needs a whole number of " + std::to_string(low) + " to " +
             std::to_string(high) + ", not \"" + found->value + "\"",
         err);
    return false;
}

static std::string Shortest(double value)
{
    char text[64];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value);
    return error == std::errc() ? std::string(text, end) : std::string();
}

bool CommandLine::Number(const std::string& wanted, double low, double high, double* number, FILE* err)
{
    const Given* const found = Last(wanted);
    if (!found)
        return true;
    const char* const end = found->value.data() + found->value.size();
    double value = 0;
    const auto [stop, error] = std::from_chars(found->value.data(), end, value);
    if (error == std::errc() && stop == end && value >= low && value <= high) { // a NaN is neither
        *number = value;
        return true;
    }
    Fail("option --" + wanted + " needs a number of " + Shortest(low) + " to " + Shortest(high) + ", not \"" +
             found->value + "\"",
         err);
    return false;
}

int CommandLine::Fail(const std::string& text, FILE* err)
{
    fprintf(err, "%s: %s\n", name.c_str(), text.c_str());
    exitStatus = ExitUsage;
    return exitStatus;
}

// Appends the words of a text from the given column on, each further line indented as far.
static void AddWrapped(std::string* help, const std::string& text, size_t column)
{
    size_t at = column;
    size_t begin = 0;
    while (begin < text.size()) {
        const size_t end = std::min(text.find(' ', begin), text.size());
        const size_t length = end - begin;
        if (at > column && at + 1 + length > helpWidth) {
            *help += "\n" + std::string(column, ' ');
            at = column;
        } else if (at > column) {
            *help += ' ';
            at++;
        }
        help->append(text, begin, length);
        at += length;
        begin = end + 1;
    }
    *help += '\n';
}

std::string CommandLine::HelpText() const
{
    std::string help = "Usage: " + name + " [OPTION]...";
    if (!operandForm.empty())
        help += " " + operandForm;
    help += "\n";
    AddWrapped(&help, summary, 0);
    help += "\n";
    for (const Option& option : options) {
        std::string head = option.letter ? std::string("  -") + option.letter + ", --" : "      --";
        head += option.name;
        if (option.value)
            head += std::string("=") + option.value;
        if (head.size() + 2 <= helpColumn)
            head.resize(helpColumn, ' ');
        else
            head += "\n" + std::string(helpColumn, ' ');
        help += head;
        AddWrapped(&help, option.help, helpColumn);
    }
    return help;
}

std::string CommandLine::VersionText() const
{
    return name + " " + MARLINEX_VERSION;
}

const Option* CommandLine::FindName(const std::string& wanted) const
{
    for (const Option& option : options)
        if (wanted == option.name)
            return &option;
    return nullptr;
}

const Option* CommandLine::FindLetter(char letter) const
{
    for (const Option& option : options)
        if (option.letter && option.letter == letter)
            return &option;
    return nullptr;
}

const CommandLine::Given* CommandLine::Last(const std::string& wanted) const
{
    for (size_t i = given.size(); i-- > 0;)
        if (wanted == given[i].option->name)
            return &given[i];
    return nullptr;
}

} // namespace cli

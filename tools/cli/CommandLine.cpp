// SPDX-License-Identifier: MIT
#include "tools/cli/CommandLine.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>

#include <getopt.h>

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

// getopt_long returns the letter of a short option, and these codes, one per row of the table, for long ones.
static const int firstLongCode = 256;

bool CommandLine::Read(int argc, const char* const* argv, FILE* out, FILE* err)
{
    std::string letters = ":"; // a missing value is told apart from an unknown option
    std::vector<option> longOptions;
    for (const Option& each : options) {
        longOptions.push_back({each.name, each.value ? required_argument : no_argument, nullptr,
                               firstLongCode + int(longOptions.size())});
        if (each.letter)
            letters += each.letter;
        if (each.letter && each.value)
            letters += ':';
    }
    longOptions.push_back({});

    if (argc == 2 && !strcmp(argv[1], "--completion=bash"))
        return Print(BashCompletion(), out, err);
    if (argc == 2 && !strcmp(argv[1], "--completion=zsh"))
        return Print(ZshCompletion(), out, err);

    std::vector<char*> words; // getopt_long sorts them, operands last
    for (int i = 0; i < argc; i++)
        words.push_back(const_cast<char*>(argv[i]));
    words.push_back(nullptr);
    optind = 0; // also forgets where an earlier reading stood
    opterr = 0;
    for (;;) {
        const int code = getopt_long(argc, words.data(), letters.c_str(), longOptions.data(), nullptr);
        if (code == -1)
            break;
        if (code == '?' || code == ':') {
            Fail(Mistake(code, words[optind - 1]), err);
            return false;
        }
        const Option* const found = FindCode(code);
        const bool help = !strcmp(found->name, "help");
        if (help || !strcmp(found->name, "version"))
            return Print(help ? HelpText() : VersionText() + "\n", out, err);
        given.push_back({found, optarg ? optarg : ""});
    }
    operands.assign(words.begin() + optind, words.begin() + argc);
    return CheckOperands(err);
}

bool CommandLine::Print(const std::string& text, FILE* out, FILE* err)
{
    exitStatus = ExitClean;
    if (fputs(text.c_str(), out) < 0 || fflush(out) != 0)
        Fail(std::string("standard output: ") + strerror(errno), err);
    return false;
}

// What is wrong with the option that getopt_long has stopped at.
std::string CommandLine::Mistake(int code, const std::string& word) const
{
    const Option* const known = optopt ? FindCode(optopt) : nullptr;
    if (known) {
        const std::string written =
            optopt < firstLongCode ? std::string("-") + known->letter : std::string("--") + known->name;
        if (code == ':')
            return "option " + written + " needs a value, " + known->value;
        return "option " + written + " takes no value";
    }
    const std::string written = optopt ? std::string("-") + char(optopt) : word.substr(0, word.find('='));
    std::string candidates;
    for (const Option& each : options)
        if (!optopt && ("--" + std::string(each.name)).starts_with(written))
            candidates += (candidates.empty() ? " --" : ", --") + std::string(each.name);
    if (!candidates.empty())
        return "option " + written + " can be short for" + candidates;
    return "unknown option " + written + " (--help lists what there is)";
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
    help += "\nOptions:\n";
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

const Option* CommandLine::FindCode(int code) const
{
    if (code >= firstLongCode)
        return &options[size_t(code - firstLongCode)];
    for (const Option& each : options)
        if (each.letter && each.letter == char(code))
            return &each;
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

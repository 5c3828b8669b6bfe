// SPDX-License-Identifier: MIT
// The command line of a program: a table of options, read by getopt_long, from which --help and the manual
// page are made. A Main looks like this:
//
//     static const std::vector<cli::Option> options = {
//         {"data", 0, "DIR", "Look for pictures in DIR instead of where the show looks."},
//         {"output", 'o', "FILE", "Write to FILE instead of standard output."},
//         {"json", 0, nullptr, "Write JSON."},
//     };
//
//     int main(int argc, char** argv)
//     {
//         cli::CommandLine line("marlinex-lint", "Checks a script.", "FILE", options);
//         if (!line.Read(argc, argv))
//             return line.exitStatus;
//         ...
//     }
//
// GNU conventions hold: --data DIR, --data=DIR, -o FILE and -oFILE; short options without values can be
// bundled; a long option can be shortened as long as one option alone begins so; "--" ends the options; "-"
// is an operand; options and operands can be mixed. If an option is repeated, the last one counts. --help and
// --version are added to every table, and what stands after them is not read. --completion=bash and
// --completion=zsh, which --help does not list and which have to be the only word, give the shell's completion of the
// table: the build installs them.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace cli
{

// Exit statuses that all programs share; 1 is each program's own.
const int ExitClean = 0;
const int ExitUsage = 2; // also: a file that can't be read or written

struct Option {
    const char* name;  // without its dashes
    char letter;       // the short form, or 0
    const char* value; // what stands for the value in --help, "DIR"; null: the option takes none
    const char* help;  // a sentence or more, wrapped by --help
};

class CommandLine
{
public:
    // operands is how --help shows them: "FILE" means exactly one, "FILE..." one or more, "[FILE]" at most
    // one, "" none. The texts of the table are borrowed.
    CommandLine(const char* programName, const char* summaryText, const char* operandText,
                std::vector<Option> table);

    // False if the program has to end with exitStatus: ExitClean after --help, --version and --completion, whose
    // text went to out, and ExitUsage after a mistake or if out could not be written to, which is one line on err.
    bool Read(int argc, const char* const* argv, FILE* out = stdout, FILE* err = stderr);

    bool Has(const std::string& name) const;
    std::string Value(const std::string& name, const std::string& otherwise = "") const;

    // Reads the value of an option as a number of low to high; *number stays as it is if the option was not
    // given. False if the value is not such a number: that is one line on err, and exitStatus is ExitUsage.
    bool WholeNumber(const std::string& name, int64_t low, int64_t high, int64_t* number, FILE* err = stderr);
    bool Number(const std::string& name, double low, double high, double* number, FILE* err = stderr);

    // One line on err, "NAME: text"; sets exitStatus to ExitUsage and returns it.
    int Fail(const std::string& text, FILE* err = stderr);

    std::string HelpText() const;
    std::string BashCompletion() const; // Completion.cpp
    std::string ZshCompletion() const;
    std::string VersionText() const; // "NAME 1.5"

    std::vector<std::string> operands;
    int exitStatus;

private:
    struct Given {
        const Option* option;
        std::string value;
    };

    bool Print(const std::string& text, FILE* out, FILE* err); // always false, as Read is after it
    const Option* FindCode(int code) const;                    // of getopt_long; null: no such letter
    std::string Mistake(int code, const std::string& word) const;
    const Given* Last(const std::string& name) const;
    bool CheckOperands(FILE* err);

    std::string name;
    std::string summary;
    std::string operandForm;
    std::vector<Option> options; // --help and --version at the end
    std::vector<Given> given;
};

} // namespace cli

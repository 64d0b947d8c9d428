#include <array>
#include <string>

#include "apps/cardprint/Arguments.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {

using platform::_;

std::string help() {
  // Translators: the texts of the help stay within 80 columns, and options in their column.
  const std::array paragraphs{
      _(R"help(Usage: cardprint [--ppd FILE | -d QUEUE[/INSTANCE]] [-o KEY[=VALUE]]...
                 [-n COPIES] [-t TITLE] [-H WHEN] [-q PRIORITY] [-P PAGES]
                 [-h HOST[:PORT]] [-U USER] [-E] [-s] [--wait]
                 [--no-dialog [--strict] [--each] [--list FILE] [--stop]]
                 [--trace] [FILE]...
Shows the options of a card printer, and prints FILEs with what is chosen.
)help"),
      _(R"help(       cardprint --check PPD...
Tells what the panels make of a printer's PPD, by file and line.
Exit status: 0 when nothing is wrong, 1 for warnings, 2 for errors.
)help"),
      _(R"help(  -d QUEUE[/INSTANCE]  the queue to print on, with the options saved for it or
                       for that instance of it; the default queue otherwise
  --ppd FILE           the printer's PPD; needs no print server and prints
                       nothing, so it takes no FILE
  -o KEY=VALUE         choose VALUE for the printer's option KEY, or give the
                       job that attribute, such as copies=2; KEY alone is true,
                       noKEY false; several in one argument, with spaces between
                       them, as lp takes them. An area is four measurements:
                       -o frontResinInclude1="1in 1in 2in 2in"
)help"),
      _(R"help(As lp takes them:
  -n COPIES            how many copies to print
  -t TITLE             what the job is called
  -H WHEN              hold, immediate, or the time HH:MM or HH:MM:SS in UTC
  -q PRIORITY          from 1 to 100
  -P PAGES             such as 1,3-5
  -h HOST[:PORT]       the print server, or its socket
  -U USER              as whom to ask the print server
  -E                   encrypt what goes to the print server
  -s                   print no summary and no request id with FILEs
A FILE "-" is standard input; without a FILE nothing is printed and standard
input is not read.
)help"),
      _(R"help(  --no-dialog          print at once with the options given by -o
  --strict             with --no-dialog, print nothing when an area cannot be
                       right, such as one that is off the card
  --each               with --no-dialog, make a job of each FILE
  --list FILE          with --no-dialog, make a job of each line in FILE, "-"
                       for standard input: a file and options KEY=VALUE behind
                       it, which win over those of -o; words with spaces in
                       quotes, as in the shell; a line that begins with # is
                       skipped. All are checked before the first is printed
  --stop               with --each and --list, stop at the first job that cannot
                       be sent; otherwise the others are sent
  --wait               wait until the jobs are printed; interrupting the waiting
                       leaves them alone
  --trace              write the trace log to standard error as well as to the
                       system log
  --help               print this text
  --version            print the program's version
)help"),
      _(R"help(What standard output gets: the summary, for each panel its name on a line, and
below it, indented by four spaces, a line "OPTION: CHOICE" for each option, by
their titles. Then one last line: with FILEs "request id is QUEUE-JOB (N
file(s))"; without, the options of the job as arguments of lp, quoted for the
shell (an empty line when the job needs none), so this prints a picture later:
)help"),
      R"help(  eval "lp -d QUEUE $(cardprint --ppd card.ppd | tail -n 1) picture.png"
)help",
      _(R"help(With --each and --list only a line "FILE: QUEUE-JOB" for each job that was sent.
)help"),
      _(R"help(No option given by -o is changed for another one: two that exclude each other
are an error. What else changed because of them is told on standard error, and
so is an area that cannot be right.
Exit status: 0 when all was done, 1 when the dialog was cancelled, 2 after an
error; then nothing was printed, or with --each and --list not all. 3 when all
was printed, but standard output could not be written. 4 with --wait, when all
was sent, but not all was printed.
)help")};
  std::string text;
  for (const char* paragraph : paragraphs) text.append(text.empty() ? "" : "\n").append(paragraph);
  return text;
}

}  // namespace cardpanels::cardprint

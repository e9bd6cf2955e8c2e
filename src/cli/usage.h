#pragma once

#include <string_view>

namespace tovera::cli {

inline constexpr std::string_view usage = R"(usage: tovera CLASS STEP...
       tovera CLASS -
       tovera list [CLASS]
       tovera --help | --version
)";

inline constexpr std::string_view help = R"(
Creates one object of CLASS, by ProgID or class name, and runs the steps on it in order: those of the command
line, or with "-" those of standard input, one a line, each as soon as it is there.

Steps
  Member              reads a property or calls a method without arguments
  Member(ARG, ...)    calls a method
  Member=VALUE        writes a property; a VALUE that is none of those below is taken as text, and a text
                      property takes numbers and dates as they stand
  name                prints a variable

Arguments and values
  "text"              a quote within it is doubled
  12  -1.5  1E+300    numbers, with a point
  True  False  Empty  Null  Nothing, in any case
  #2002-05-06#  #2002-05-06 12:00:00#
  form("FILE.frm")    the form of a Visual Basic form file; texts that the steps
                      change are written back to the file when all steps are done
  [1..2] "a", "b"     an array of texts; [] for one without bounds
  name=VALUE          a variable, passed by reference and seen by the later steps
  name                a variable made before, else a property of the object
  (nothing)           an argument left out

A step that gives a result prints it on one line. A failing member prints "error N: description" on
standard error and ends the program with status 1, as does a result that can't be written; a step that can't be
understood ends it with status 2. All steps of a command line are read before the first one runs.
"tovera list" names the classes, "tovera list CLASS" the members of one.

  tovera Cls_Conversion IntituleMonnaie=euro IntitulePetiteMonnaie=centime \
         'ConvertirNombreEnLettre(1234567.89, True)'
  tovera Cls_Math 'MesurePrincipale(a=10)' a
)";

}  // namespace tovera::cli

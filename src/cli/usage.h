#pragma once

#include <string_view>

namespace tovera::cli {

inline constexpr std::string_view usage = R"(usage: tovera CLASS STEP...
       tovera list [CLASS]
       tovera --help | --version
)";

inline constexpr std::string_view help = R"(
Creates one object of CLASS, by ProgID or class name, and runs the steps on it in order.

Steps
  Member              reads a property or calls a method without arguments
  Member(ARG, ...)    calls a method
  Member=VALUE        writes a property; a VALUE that is none of those below is taken as text
  name                prints a variable

Arguments and values
  "text"              a quote within it is doubled
  12  -1.5  1E+300    numbers, with a point
  True  False  Empty  Null  Nothing
  #2002-05-06#  #2002-05-06 12:00:00#
  [1..2] "a", "b"     an array of texts
  form("FILE.frm")    the form of a Visual Basic form file; texts that the steps
                      change are written back to the file when all steps are done
  name  name=VALUE    a variable, passed by reference and seen by the later steps
  (nothing)           an argument left out

A step that gives a result prints it on one line. A failing member prints "error N: description" on
standard error and ends the program with status 1; a command line that can't be understood, with status 2.
"tovera list" names the classes, "tovera list CLASS" the members of one.

  tovera Cls_Conversion IntituleMonnaie=euro IntitulePetiteMonnaie=centime \
         'ConvertirNombreEnLettre(1234567.89, True)'
  tovera Cls_Math 'MesurePrincipale(a=10)' a
)";

}  // namespace tovera::cli

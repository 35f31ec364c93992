// Fills the point buffer of a new document and prints the APT line of an NC_GOTO.

#include <iostream>

#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgPPWordContainer.h"
#include "KEPIMfgSyntaxEvaluation.h"
#include "System/KEPError.h"
#include "host/modeler/Document.h"
#include "host/system/Module.h"

int printGoto() {
  host::loadModule();
  const KEPVar<host::Document> document = host::newDocument();
  const KEPIMfgPPWordContainer_var words = document->ppWordContainer();

  const KEPIMfgBufferPoint_var point = words;
  point->SetPoint(10.0, -2.5, 0.125);

  KEPIMfgSyntaxEvaluation_var evaluation;
  words->GetSyntaxEvaluation(evaluation, "NC_GOTO");
  KEPListValKEPUnicodeString lines;
  if (!evaluation->InstantiateSyntax(lines, 1)) return 1;

  for (const KEPUnicodeString& line : lines) std::cout << line.View() << '\n';
  return 0;
}

int main() {
  try {
    return printGoto();
  } catch (const host::ModuleError& error) {
    std::cerr << error.what() << '\n';
  } catch (const KEPError& error) {
    std::cerr << error.GetNLSMessage().View() << '\n';
  }
  return 1;
}

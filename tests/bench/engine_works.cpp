// One motion through container, engine and evaluations into a fresh list.

#include <benchmark/benchmark.h>

#include <stdexcept>

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferHelix.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferTLAxis.h"
#include "KEPIMfgPPWordContainer.h"
#include "Manufacturing/KEPMfgAttributeUtilities.h"
#include "host/modeler/Document.h"
#include "tests/bench/Motions.h"
#include "tests/bench/Works.h"

namespace {

constexpr const char* kUserInstruction = "NC_COMMAND_FOR_PARAMETERIZED_USER_SYNTAX";

/// A document, its buffers, and the instruction that is asked for.
struct Engine {
  explicit Engine(const char* instruction) : name(instruction) {}

  KEPVar<host::Document> document = host::newDocument();
  KEPIMfgPPWordContainer_var container = document->ppWordContainer();
  KEPIMfgBufferPoint_var point = container;
  KEPIMfgBufferTLAxis_var axis = container;
  KEPIMfgBufferCircle_var circle = container;
  KEPIMfgBufferHelix_var helix = container;
  KEPIMfgSyntaxEvaluation_var evaluation;
  KEPUnicodeString name;
  std::size_t at = 0;

  const Motion& nextMotion() { return motions()[at++ % kPoints]; }

  void appendTo(KEPListValKEPUnicodeString& lines) {
    container->GetSyntaxEvaluation(evaluation, name);
    if (!evaluation->InstantiateSyntax(lines, 1)) throw std::runtime_error("no line");
  }

  void writeLines() {
    KEPListValKEPUnicodeString lines;
    appendTo(lines);
    benchmark::DoNotOptimize(lines);
  }
};

void setPoint(Engine& engine) {
  const Motion& m = engine.nextMotion();
  engine.point->SetPoint(m[0], m[1], m[2]);
  engine.axis->SetTLAxis(m[3], m[4], m[5]);
}

void setCircle(Engine& engine) {
  const Motion& m = engine.nextMotion();
  engine.circle->SetTgt(m[3], m[4], m[5]);
  engine.circle->SetCenter(m[2], m[0], m[1]);
  engine.circle->SetRadius(m[0] + 200);
  engine.circle->SetPt(m[0], m[1], m[2]);
}

void setHelix(Engine& engine) {
  const Motion& m = engine.nextMotion();
  engine.helix->SetInDirV(m[3], m[4], m[5]);
  engine.helix->SetCenter(m[2], m[0], m[1]);
  engine.helix->SetRadius(m[0] + 200);
  engine.helix->SetAxis(m[3], m[4], m[5]);
  engine.helix->SetPitch(2.5);
  engine.helix->SetEnd(m[0], m[1], m[2]);
}

using Lines = std::vector<const char*>;

/// The user's own instruction has these lines.
void setLines(Engine& engine, const Lines& texts) {
  engine.container->SetUserSyntax(KEPUnicodeString(texts.front()));
  KEPISpecObject_var type;
  engine.container->GetPPWord(type, KEPString(kUserInstruction));
  KEPListValKEPUnicodeString lines;
  for (const char* text : texts) lines.Append(KEPUnicodeString(text));
  const KEPISpecAttrAccess_var attributes = type;
  attributes->AddAttribute("Syntaxe", KEPISpecAttribute::Kind::StringList);
  attributes->SetList("Syntaxe", lines);
}

/// An instruction after its buffers were set; with `texts` the user's own one.
Work instruction(const char* name, const char* title, void (*set)(Engine&), const Lines& texts) {
  return {std::string("engine/") + title, 4 * static_cast<int>(kPoints), [name, set, texts] {
            const auto engine = std::make_shared<Engine>(name);
            if (!texts.empty()) setLines(*engine, texts);
            return [engine, set] {
              set(*engine);
              engine->writeLines();
            };
          }};
}

Work ofCatalogue(const char* name, void (*set)(Engine&)) {
  return instruction(name, name, set, {});
}

/// A further line in a list that its caller has filled with as many lines before.
Work lineAfter(int earlier) {
  return {"engine/line after/" + std::to_string(earlier), 200, [earlier] {
            const auto engine = std::make_shared<Engine>("NC_GOTO");
            const auto lines = std::make_shared<KEPListValKEPUnicodeString>();
            for (int i = 0; i < earlier; ++i) engine->appendTo(*lines);
            return [engine, lines] {
              setPoint(*engine);
              engine->appendTo(*lines);
            };
          }};
}

}  // namespace

Works engineWorks() {
  return {
      ofCatalogue("NC_GOTO", setPoint),
      ofCatalogue("NC_GOTO_VARIABLE_AXIS", setPoint),
      ofCatalogue("NC_CIRCLE1", setCircle),
      ofCatalogue("NC_HELICAL_INTERPOLATION", setHelix),
      instruction(kUserInstruction, "three lines", setPoint,
                  {"FROM/%MFG_XPOINT,%MFG_YPOINT,%MFG_ZPOINT",
                   "TLAXIS/%MFG_XAXIS,%MFG_YAXIS,%MFG_ZAXIS", "CLEARP/XYPLAN,%MFG_ZPOINT"}),
      instruction(kUserInstruction, "three sums", setPoint,
                  {"GOTO/%MFG_XPOINT+10,%MFG_YPOINT*2,%MFG_ZPOINT-1.5"}),
      lineAfter(1'000),
      lineAfter(11'000),
  };
}

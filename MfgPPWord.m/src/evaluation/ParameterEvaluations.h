#pragma once

#include "KEPIMfgBufferCircle.h"
#include "KEPIMfgBufferFeedrate.h"
#include "KEPIMfgBufferHelix.h"
#include "KEPIMfgBufferPoint.h"
#include "KEPIMfgBufferTLAxis.h"
#include "src/evaluation/BufferNumberEvaluation.h"
#include "src/evaluation/HelixEvaluation.h"
#include "src/evaluation/TextEvaluation.h"
#include "src/evaluation/ToolCompensationEvaluation.h"

// The classes of the parameter evaluations: one for each of their rows in Registrations.def.

#define PPWORD_CLASS(Way, Interface, Class, Type, LateType)
#define PPWORD_NUMBER(Class, LateType, Buffer, Getter, Which, Source)                              \
  class Class final : public ppword::BufferNumberEvaluation<Class, &KEPIMfgBuffer##Buffer::Getter, \
                                                            ppword::Component::Which,              \
                                                            ppword::FormatSource::Source> {};
#define PPWORD_HELIX(Class, LateType, function) \
  class Class final : public ppword::HelixEvaluation<Class, &ppword::function> {};
#define PPWORD_TOOL_SETTING(Class, LateType, axis) \
  class Class final : public ppword::ToolCompensationEvaluation<Class, ppword::axis> {};
#define PPWORD_OWN(Class, LateType, SecondLateType)                 \
  class Class final : public ppword::TextEvaluation<Class> {        \
   public:                                                          \
    /* As TextEvaluation asks for it. */                            \
    [[nodiscard]] bool evaluate(ppword::ParameterText& text) const; \
  };
#include "Registrations.def"

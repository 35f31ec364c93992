#include "host/system/ListenerScope.h"

#include "host/system/Session.h"

namespace host {

// A listener that is alone is called directly: a line makes some twenty calls.
ListenerScope::ListenerScope(KEPMfgPPWordListener& listener)
    : listener_(listener), previous_(session().listener) {
  session().listener = previous_ == nullptr ? &listener : this;
}

ListenerScope::~ListenerScope() { session().listener = previous_; }

void ListenerScope::LineAfterPass(Pass pass, std::string_view line) {
  listener_.LineAfterPass(pass, line);
  previous_->LineAfterPass(pass, line);
}

bool ListenerScope::ReceivesLines() const {
  return listener_.ReceivesLines() || previous_->ReceivesLines();
}

void ListenerScope::ReferenceLookedUp(std::string_view name, const KEPBaseUnknown* type,
                                      const KEPBaseUnknown* evaluation) {
  listener_.ReferenceLookedUp(name, type, evaluation);
  previous_->ReferenceLookedUp(name, type, evaluation);
}

void ListenerScope::ValueFound(const KEPMfgParameterValue& value, const KEPUnicodeString* format) {
  listener_.ValueFound(value, format);
  previous_->ValueFound(value, format);
}

void ListenerScope::ReferenceReplaced(std::string_view name, Source source, std::string_view text) {
  listener_.ReferenceReplaced(name, source, text);
  previous_->ReferenceReplaced(name, source, text);
}

void ListenerScope::TextDropped(std::string_view name, std::string_view text) {
  listener_.TextDropped(name, text);
  previous_->TextDropped(name, text);
}

void ListenerScope::OperationEnded(Operation outcome, std::string_view operation,
                                   std::string_view result) {
  listener_.OperationEnded(outcome, operation, result);
  previous_->OperationEnded(outcome, operation, result);
}

void ListenerScope::TableEntry(Section section, int number, std::string_view name,
                               Outcome outcome) {
  listener_.TableEntry(section, number, name, outcome);
  previous_->TableEntry(section, number, name, outcome);
}

void ListenerScope::ValueLacking(Lack why) {
  listener_.ValueLacking(why);
  previous_->ValueLacking(why);
}

void ListenerScope::GenerationFormatUsed(const KEPUnicodeString& format) {
  listener_.GenerationFormatUsed(format);
  previous_->GenerationFormatUsed(format);
}

}  // namespace host

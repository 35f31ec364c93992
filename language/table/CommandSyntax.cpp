#include "language/table/CommandSyntax.h"

#include <set>
#include <unordered_map>
#include <utility>
#include <variant>

#include "language/syntax/Characters.h"
#include "language/table/CommandQueries.h"
#include "language/table/CutSyntaxes.h"
#include "language/table/Keywords.h"

namespace ppword {
namespace {

// How a body with inserts is read, by an example:
//
//   *START_NC_COMMAND NC_A    *START_NC_COMMAND NC_B    *START_NC_COMMAND NC_C
//   A1                        *INSERT NC_A              *INSERT NC_B
//   *END                      B1                        *INSERT NC_B
//                             *END                      *END
//
// NC_C is A1, B1, A1, B1. Its body is the first frame of a stack. At its first insert the place
// after the insert is stored and the body of NC_B is opened in a frame of its own, and in it that
// of NC_A. The end of a body closes its frame, and reading goes on at the stored place. When the
// second insert comes, the body of NC_B is whole and is not read again: NC_C gets it as a piece a
// second time. So the pieces of all bodies are no more than the table has lines, however many
// elements they describe: n commands that insert the one before twice describe 2^n. The elements of
// a body are counted when it ends, and too many are refused before they are written out.
//
// An insert of a body that is still being read never ends and is refused. An insert that names no
// command, "*INSERT X", breaks the body that it is in: that body has no elements, and the one
// around it goes on after the broken insert, in a text that is not its own. Coming to the same
// broken insert again from there never ends either.
//
// At last the pieces are written out, and the elements that were cut are mended, first those of
// the inner bodies, each as a list of its own.

// Bodies that lack their end overlap, and a short table of them could take any time and memory.
// Bodies that do not overlap come nowhere near these bounds.
constexpr std::size_t kMostPieces = 1'000'000;
constexpr long kMostBytes = 256L * 1024 * 1024;

struct Body;

// An element, and where it begins where that is asked for.
struct Element {
  std::string text;
  long place;
};

// A body inserted in another one. Of bodies that hold nothing but an insert only the innermost is
// stored, with the number of levels at which its elements are mended.
struct Inserted {
  const Body* body;
  std::size_t levels;
};

// What was read of a command body: its elements, and the bodies inserted between them.
struct Body {
  enum class State { Unread, Reading, Whole, Broken };
  State state = State::Unread;
  std::vector<std::variant<Element, Inserted>> pieces;
  std::size_t size = 0;   // elements, those of the inserted bodies included
  bool mayBeCut = false;  // one of these elements is kCutWidth wide
  long brokenAfter = 0;   // where reading stopped when the body is Broken
};

// Each inserted command is read once, however often it is inserted, so that the time is that of
// reading the table and not that of writing out what it describes.
class SyntaxReader {
 public:
  SyntaxReader(TableSource& source, std::string_view commandName,
               std::optional<CommandPositions>& positions, std::vector<long>* places)
      : source_(source),
        commandName_(commandName),
        positions_(positions),
        places_(places),
        from_(source.position()) {}

  std::optional<std::vector<std::string>> read();

 private:
  // A body being read, and where the reading goes on after it.
  struct Frame {
    Body* body;
    long after;
    std::set<long> brokenInserts;
  };

  bool take(std::string_view token);
  bool takeElement(std::string_view token);
  bool skipList();
  bool endBody();
  bool insert();
  bool findCommands();
  bool open(Body& body, long start);
  bool keepInserted(const Body& body);
  bool breakBody();
  bool goOnAfter(const Body& broken);
  bool goTo(long position);
  void add(std::string element, long place);
  Body& current() { return *frames_.back().body; }

  TableSource& source_;
  std::string_view commandName_;
  std::vector<Frame> frames_;
  std::optional<CommandPositions>& positions_;
  std::vector<long>* places_;
  bool hasInserts_ = false;
  std::unordered_map<std::string, Body> inserted_;
  std::size_t pieces_ = 0;  // of the whole inserted bodies
  long from_;               // where the scan began or went last
  long bytes_ = 0;          // what it read before
};

// The elements of one body in the list of all of them.
struct ElementRange {
  std::size_t first;
  std::size_t last;    // one past the end
  std::size_t levels;  // how many times it is mended
};

std::vector<std::string> mended(std::vector<std::string> elements,
                                const std::vector<ElementRange>& bodies) {
  if (bodies.empty()) return elements;
  CutSyntaxes cut(elements);
  for (const ElementRange& body : bodies) {
    for (std::size_t level = 0; level < body.levels; ++level) {
      if (cut.mend(body.first, body.last) == 0) break;
    }
  }
  return cut.elements();
}

// The elements of a body in order, each inserted body mended before the one around it.
std::vector<std::string> writtenOut(const Body& top, std::vector<long>* places) {
  struct Visit {
    Inserted inserted;
    std::size_t first;
    std::size_t next = 0;
  };
  std::vector<std::string> elements;
  std::vector<ElementRange> bodies;  // those that may be cut, the inner ones first
  std::vector<Visit> visits = {{{&top, 1}, 0}};
  while (!visits.empty()) {
    Visit& visit = visits.back();
    const Body& body = *visit.inserted.body;
    if (visit.next == body.pieces.size()) {
      if (body.mayBeCut) bodies.push_back({visit.first, elements.size(), visit.inserted.levels});
      visits.pop_back();
      continue;
    }
    const auto& piece = body.pieces[visit.next++];
    if (const auto* const element = std::get_if<Element>(&piece)) {
      elements.push_back(element->text);
      if (places != nullptr) places->push_back(element->place);
    } else {
      visits.push_back({std::get<Inserted>(piece), elements.size()});
    }
  }
  return mended(std::move(elements), bodies);
}

Inserted insertedBody(const Body& body) {
  if (body.pieces.size() == 1) {
    const auto* const only = std::get_if<Inserted>(&body.pieces.front());
    if (only != nullptr) return {only->body, only->levels + 1};
  }
  return {&body, 1};
}

std::optional<std::vector<std::string>> SyntaxReader::read() {
  Body top;
  frames_.push_back({&top, 0, {}});
  while (!frames_.empty()) {
    const auto token = nextPlainToken(source_);
    if (!token || !take(*token)) return std::nullopt;
  }
  if (places_ != nullptr) places_->clear();
  return writtenOut(top, places_);
}

bool SyntaxReader::take(std::string_view token) {
  const auto keyword = keywordInBody(token);
  if (!keyword) return takeElement(token);
  if (*keyword == KeywordKind::List) return skipList();
  // deliberate: the elements of the first sequence are elements of the command
  if (*keyword == KeywordKind::Sequence) return true;
  return *keyword == KeywordKind::End ? endBody() : insert();
}

bool SyntaxReader::takeElement(std::string_view token) {
  std::string word(token);
  const long place = places_ != nullptr ? source_.position() - static_cast<long>(word.size()) : 0;
  if (!isTextWord(word)) {
    add(std::move(word), place);
  } else if (const auto rest = source_.nextLine()) {
    add(textElement(word, *rest), place);
  }
  return true;
}

bool SyntaxReader::skipList() { return findToken(source_, kEndKeyword); }

bool SyntaxReader::endBody() {
  Body& body = current();
  const long after = frames_.back().after;
  pieces_ += body.pieces.size();
  if (hasInserts_ && (body.size > kMostElements || pieces_ > kMostPieces)) return false;
  body.state = Body::State::Whole;
  frames_.pop_back();
  return frames_.empty() || (goTo(after) && keepInserted(body));
}

bool SyntaxReader::insert() {
  const auto token = source_.nextToken();
  if (!token) return false;
  if (!token->starts_with(kCommandPrefix)) return breakBody();
  const std::string name(*token);
  hasInserts_ = true;
  if (!positions_ && !findCommands()) return false;
  const auto start = positions_->find(name);
  if (start == positions_->end()) return false;
  Body& body = inserted_[name];
  if (body.state == Body::State::Unread) return open(body, start->second);
  if (body.state == Body::State::Whole) return keepInserted(body);
  return body.state == Body::State::Broken && goOnAfter(body);
}

bool SyntaxReader::findCommands() {
  const long here = source_.position();
  positions_ = commandPositions(source_);
  return source_.seek(here);
}

bool SyntaxReader::open(Body& body, long start) {
  body.state = Body::State::Reading;
  frames_.push_back({&body, source_.position(), {}});
  return goTo(start);
}

bool SyntaxReader::keepInserted(const Body& body) {
  const bool outermost = frames_.size() == 1;
  if (outermost && !positions_->contains(std::string(commandName_))) return false;
  if (body.size == 0) return true;
  current().pieces.emplace_back(insertedBody(body));
  current().size += body.size;
  current().mayBeCut = current().mayBeCut || body.mayBeCut;
  return true;
}

// An insert that names no command: the body fails, and the one around it goes on from here.
bool SyntaxReader::breakBody() {
  if (frames_.size() == 1) return false;
  Body& body = current();
  body.state = Body::State::Broken;
  body.pieces = {};
  body.brokenAfter = source_.position();
  frames_.pop_back();
  return goOnAfter(body);
}

// What is read from there on depends on nothing else: a body that comes there again never ends.
bool SyntaxReader::goOnAfter(const Body& broken) {
  return frames_.back().brokenInserts.insert(broken.brokenAfter).second && goTo(broken.brokenAfter);
}

bool SyntaxReader::goTo(long position) {
  bytes_ += source_.position() - from_;
  from_ = position;
  return bytes_ <= kMostBytes && source_.seek(position);
}

void SyntaxReader::add(std::string element, long place) {
  ++current().size;
  current().mayBeCut = current().mayBeCut || element.size() == kCutWidth;
  current().pieces.emplace_back(Element{std::move(element), place});
}

}  // namespace

std::string textElement(std::string_view word, std::string_view rest) {
  std::string element(word);
  // deliberate: the last character goes, even when it is no line feed
  element.append(rest, 0, rest.size() - 1);
  return std::string(withoutBlanks(element));
}

std::optional<std::vector<std::string>> readSyntax(TableSource& source,
                                                   std::string_view commandName,
                                                   std::optional<CommandPositions>& positions,
                                                   std::vector<long>* places) {
  return SyntaxReader(source, commandName, positions, places).read();
}

}  // namespace ppword

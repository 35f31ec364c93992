#pragma once

namespace host {

class LineReader;

/// What a file of tool paths can be.
enum class SourceKind { Job, Listing };

/// Tells by its first bytes whether an input is a job (JSON Lines) or a canonical listing; nothing
/// of it is taken. An InputError for an input that is neither.
[[nodiscard]] SourceKind recogniseSource(LineReader& lines);

}  // namespace host

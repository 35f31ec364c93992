#pragma once

#include <string_view>

/// Names that the manufacturing interfaces publish. Each has its own name as text.
inline constexpr std::string_view PPCommandSynchro = "PPCommandSynchro";
inline constexpr std::string_view TPMachiningFeedrate = "TPMachiningFeedrate";
inline constexpr std::string_view TPApproachFeedrate = "TPApproachFeedrate";
inline constexpr std::string_view TPRetractFeedrate = "TPRetractFeedrate";
inline constexpr std::string_view TPFinishingFeedrate = "TPFinishingFeedrate";
inline constexpr std::string_view TPPlungeFeedrate = "TPPlungeFeedrate";
inline constexpr std::string_view TPChamferingFeedrate = "TPChamferingFeedrate";

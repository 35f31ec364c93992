#pragma once

#include <string_view>

/// Names that the manufacturing interfaces publish. The text of each is its own name.
inline constexpr std::string_view PPCommandSynchro = "PPCommandSynchro";
inline constexpr std::string_view TPMachiningFeedrate = "TPMachiningFeedrate";
inline constexpr std::string_view TPApproachFeedrate = "TPApproachFeedrate";
inline constexpr std::string_view TPRetractFeedrate = "TPRetractFeedrate";
inline constexpr std::string_view TPFinishingFeedrate = "TPFinishingFeedrate";
inline constexpr std::string_view TPPlungeFeedrate = "TPPlungeFeedrate";
inline constexpr std::string_view TPChamferingFeedrate = "TPChamferingFeedrate";

// Parameters of an operation or of a sequential motion.
inline constexpr std::string_view Mfg_MachiningFeedrateValue = "Mfg_MachiningFeedrateValue";
inline constexpr std::string_view Mfg_SpindleSpeedValue = "Mfg_SpindleSpeedValue";
inline constexpr std::string_view MfgDwellMode = "MfgDwellMode";
inline constexpr std::string_view MfgDwellRound = "MfgDwellRound";
inline constexpr std::string_view MfgDwellTime = "MfgDwellTime";

// Tools, assemblies and inserts.
inline constexpr std::string_view MfgRightHand = "MfgRightHand";
inline constexpr std::string_view MfgLeftHand = "MfgLeftHand";
inline constexpr std::string_view MfgInvertedAssembly = "MfgInvertedAssembly";
inline constexpr std::string_view MfgNoseRadius = "MfgNoseRadius";
inline constexpr std::string_view MfgLeftNoseRadius = "MfgLeftNoseRadius";
inline constexpr std::string_view MfgRightNoseRadius = "MfgRightNoseRadius";
inline constexpr std::string_view MfgGrooveInsert = "MfgGrooveInsert";
inline constexpr std::string_view KEPEMfgGrooveInsert = "KEPEMfgGrooveInsert";

// Values of a machine.
inline constexpr std::string_view MfgPPWordTable = "MfgPPWordTable";

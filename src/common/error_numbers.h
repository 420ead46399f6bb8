// The error numbers of the members that talk to the terminal, one constant for each member: several members share a
// message, so only the number indicates which member failed. The accessors of CPNR have their numbers in their tables.
#pragma once

#include <cstdint>

namespace wendrill {

inline constexpr std::int32_t kSubmitFailed = 2300;
inline constexpr std::int32_t kRMBatchFailed = 2305;      // reserved: see kBatchHelperFailed
inline constexpr std::int32_t kBatchHelperFailed = 2310;  // the private helpers of CBatch, one of which splits remarks
inline constexpr std::int32_t kSubmitWithResponseFailed = 2315;
inline constexpr std::int32_t kAddFailed = 2400;
inline constexpr std::int32_t kRetrieveCurrentFailed = 2500;
inline constexpr std::int32_t kRetrieveRecLocFailed = 2501;
inline constexpr std::int32_t kSplitPNRFailed = 2502;
inline constexpr std::int32_t kReadPNRFailed = 2503;
inline constexpr std::int32_t kSendCommandFailed = 2505;  // also SendCommandNoTransmit
inline constexpr std::int32_t kSendCommandFIFailed = 2506;
inline constexpr std::int32_t kNoSessionRuns = 2510;
inline constexpr std::int32_t kSendKeyFailed = 2515;
inline constexpr std::int32_t kChangeSMODFailed = 2520;
inline constexpr std::int32_t kSendCommandGetAllFailed = 2525;  // also SendCommandGetAllNoClear
inline constexpr std::int32_t kSendCommandNoClearFailed = 2530;
inline constexpr std::int32_t kConnectSessionFailed = 2535;
inline constexpr std::int32_t kSendCommandTicsPasFailed = 2540;
inline constexpr std::int32_t kGetTotalHostResponseFailed = 2545;
inline constexpr std::int32_t kPageReaderFailed = 2550;
inline constexpr std::int32_t kSendCommandCollectPagesFailed = 2557;
inline constexpr std::int32_t kLockAlarmFailed = 2558;  // also for the lock before an entry that raises host alarms
inline constexpr std::int32_t kUnLockAlarmFailed = 2559;
inline constexpr std::int32_t kSendCommandLinesFailed = 2600;

}  // namespace wendrill

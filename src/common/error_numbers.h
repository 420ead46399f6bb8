// The error numbers of the members that use the terminal, one constant for each member. Several members share a
// message, so only the number shows which member failed. The numbers of the accessors of CPNR are in the tables of the
// accessors.
#pragma once

#include <cstdint>

namespace wendrill {

inline constexpr std::int32_t kSubmitFailed = 2300;
inline constexpr std::int32_t kRMBatchFailed = 2305;      // not raised: RMBatch raises kBatchHelperFailed
inline constexpr std::int32_t kBatchHelperFailed = 2310;  // the private helpers of CBatch; one of them splits remarks
inline constexpr std::int32_t kSubmitWithResponseFailed = 2315;
inline constexpr std::int32_t kAddFailed = 2400;
inline constexpr std::int32_t kRetrieveCurrentFailed = 2500;
inline constexpr std::int32_t kRetrieveRecLocFailed = 2501;
inline constexpr std::int32_t kSplitPNRFailed = 2502;
inline constexpr std::int32_t kReadPNRFailed = 2503;
inline constexpr std::int32_t kSendCommandFailed = 2505;  // also raised by SendCommandNoTransmit
inline constexpr std::int32_t kSendCommandFIFailed = 2506;
inline constexpr std::int32_t kNoSessionRuns = 2510;
inline constexpr std::int32_t kSendKeyFailed = 2515;
inline constexpr std::int32_t kChangeSMODFailed = 2520;
inline constexpr std::int32_t kSendCommandGetAllFailed = 2525;  // also raised by SendCommandGetAllNoClear
inline constexpr std::int32_t kSendCommandNoClearFailed = 2530;
inline constexpr std::int32_t kConnectSessionFailed = 2535;
inline constexpr std::int32_t kSendCommandTicsPasFailed = 2540;
inline constexpr std::int32_t kGetTotalHostResponseFailed = 2545;
inline constexpr std::int32_t kPageReaderFailed = 2550;
inline constexpr std::int32_t kSendCommandCollectPagesFailed = 2557;
inline constexpr std::int32_t kLockAlarmFailed = 2558;  // also raised when the lock before an entry fails
inline constexpr std::int32_t kUnLockAlarmFailed = 2559;
inline constexpr std::int32_t kSendCommandLinesFailed = 2600;

}  // namespace wendrill

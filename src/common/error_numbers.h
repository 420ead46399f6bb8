// The library's own error numbers, except those of the members that count or read elements of a PNR (2010 to 2261),
// which are in the rows of the tables in src/pnr/ and src/scan/.
// Most members that use the terminal have a number of their own. Several numbers share a message, so only the number
// shows which member failed.
#pragma once

#include <cstdint>

namespace wendrill {

inline constexpr std::int32_t kSubmitFailed = 2300;
inline constexpr std::int32_t kRMBatchFailed = 2305;      // never raised: splitting a remark raises kBatchHelperFailed
inline constexpr std::int32_t kBatchHelperFailed = 2310;  // splitting a remark, and other helpers of CBatch
inline constexpr std::int32_t kSubmitWithResponseFailed = 2315;
inline constexpr std::int32_t kAddFailed = 2400;
inline constexpr std::int32_t kRetrieveCurrentFailed = 2500;
inline constexpr std::int32_t kRetrieveRecLocFailed = 2501;
inline constexpr std::int32_t kSplitPNRFailed = 2502;
inline constexpr std::int32_t kReadPNRFailed = 2503;
inline constexpr std::int32_t kSendCommandFailed = 2505;  // also raised by SendCommandNoTransmit
inline constexpr std::int32_t kSendCommandFIFailed = 2506;
inline constexpr std::int32_t kNoSessionRuns = 2510;  // raised by the constructor of CQuillet
inline constexpr std::int32_t kSendKeyFailed = 2515;
inline constexpr std::int32_t kChangeSMODFailed = 2520;
inline constexpr std::int32_t kSendCommandGetAllFailed = 2525;  // also raised by SendCommandGetAllNoClear
inline constexpr std::int32_t kSendCommandNoClearFailed = 2530;
inline constexpr std::int32_t kConnectSessionFailed = 2535;
inline constexpr std::int32_t kSendCommandTicsPasFailed = 2540;
inline constexpr std::int32_t kGetTotalHostResponseFailed = 2545;
inline constexpr std::int32_t kPageReaderFailed = 2550;  // page_readers.h; members raise their own number instead
inline constexpr std::int32_t kSendCommandCollectPagesFailed = 2557;
inline constexpr std::int32_t kLockAlarmFailed = 2558;  // LockAlarm; other members replace 2558 with their own number
inline constexpr std::int32_t kUnLockAlarmFailed = 2559;
inline constexpr std::int32_t kSendCommandLinesFailed = 2600;

}  // namespace wendrill

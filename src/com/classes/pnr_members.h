// The members of CPNR that come in rows: what one of them does, all of its kind do.
#pragma once

// IGet in interface order, with the published dispatch identifiers.
#define WENDRILL_GET_MEMBERS(ROW)             \
  ROW(ActiveAirSegments, 0x60030000)          \
  ROW(AirSegments, 0x60030001)                \
  ROW(AllAirSegments, 0x60030002)             \
  ROW(BillingAddressElements, 0x6003000F)     \
  ROW(CarSegment, 0x60030003)                 \
  ROW(ConfidentialRemarkElements, 0x60030010) \
  ROW(ContactElements, 0x60030011)            \
  ROW(FareCommissionElement, 0x60030004)      \
  ROW(FlownAirSegments, 0x60030005)           \
  ROW(FormOfPaymentElement, 0x60030006)       \
  ROW(HotelSegment, 0x60030007)               \
  ROW(MailingAddressElements, 0x60030012)     \
  ROW(NameElement, 0x60030008)                \
  ROW(OpenAirSegments, 0x60030009)            \
  ROW(OptionElements, 0x60030013)             \
  ROW(PNRHeader, 0x6003000A)                  \
  ROW(RemarkElement, 0x6003000B)              \
  ROW(TicketElement, 0x6003000C)              \
  ROW(ValidatingAirlineElement, 0x6003000D)   \
  ROW(AirSequenceNrElement, 0x6003000E)

// Counts of the toolkit's collections, without their ending "Count".
#define WENDRILL_TOOLKIT_COUNTS(ROW)  \
  ROW(NameElements, 8)                \
  ROW(TicketElements, 9)              \
  ROW(RemarkElements, 10)             \
  ROW(FormOfPaymentElements, 11)      \
  ROW(HotelSegments, 12)              \
  ROW(FareCommissionElements, 13)     \
  ROW(OpenAirSegments, 14)            \
  ROW(OrigianlIssueElements, 15)      \
  ROW(AirSegments, 16)                \
  ROW(ActiveAirSegments, 17)          \
  ROW(INSElements, 18)                \
  ROW(MISElements, 19)                \
  ROW(MailingAddressElements, 20)     \
  ROW(ContactElements, 21)            \
  ROW(ConfidentialRemarkElements, 22) \
  ROW(OptionElements, 23)             \
  ROW(BillingAddressElements, 24)     \
  ROW(AllAirSegments, 25)             \
  ROW(FlownAirSegments, 26)           \
  ROW(CarSegments, 27)                \
  ROW(FEElements, 28)                 \
  ROW(AutoTktElements, 29)            \
  ROW(HTLElements, 30)

// Counts of the display scans, without their ending "Count".
#define WENDRILL_SCANNED_COUNTS(ROW) \
  ROW(SpecialServiceElements, 33)    \
  ROW(OtherServiceElements, 34)      \
  ROW(SecurityElements, 35)          \
  ROW(ManualTktElements, 36)         \
  ROW(MiscTktInfoElements, 37)       \
  ROW(SURElements, 38)               \
  ROW(SPElements, 39)                \
  ROW(ATXSegments, 40)               \
  ROW(MCOElements, 41)

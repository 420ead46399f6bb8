// Tickets, forms of payment and fare commissions.
#include "common/text.h"
#include "pnr/accessor_tables.h"
#include "pnr/associations.h"

namespace wendrill {
namespace {

// The form of payment: the text before the first four consecutive blanks, or the whole text when it has no four
// consecutive blanks.
TextView FormOf(Element& payment) {
  return Before(payment.Text(), u"    ");
}

//          1
// 12345678901234567
// 7 FP CASH/S2/P1
// 12 FP PAX CASH/S2
constexpr std::ptrdiff_t kValueColumn = 6;
constexpr std::ptrdiff_t kValueAfterPassengerColumn = 11;
constexpr TextView kPassengerWord = u"PAX";

std::optional<Value> FormOfPayment(Element& payment) {
  return FormOf(payment);
}

// The value of a form of payment, such as "CASH", trimmed. Three cases:
//   - Without a "/": the text from column 6 on, including "PAX".
//   - With a "/" but without "PAX": the text from column 6 to the first "/". Raises 5 (invalid argument: a negative
//     length) when the first "/" is before column 6.
//   - With a "/" and "PAX": the text from the second character after "PAX" on. Intentional: the length is the column of
//     the first "/" minus 11, as if the value always began in column 11. Raises 5 (invalid argument: a negative length)
//     when the first "/" is before column 11.
std::optional<Value> PaymentValue(Element& payment) {
  const TextView form = FormOf(payment);
  const std::ptrdiff_t slash = ColumnOf(form, u"/");
  if (slash == 0) {
    return Trimmed(FromColumn(form, kValueColumn));
  }
  if (const std::ptrdiff_t word = ColumnOf(form, kPassengerWord); word > 0) {
    return Trimmed(Columns(form, word + std::ssize(kPassengerWord) + 1, slash - kValueAfterPassengerColumn));
  }
  return Trimmed(Columns(form, kValueColumn, slash - kValueColumn));
}

// The text after `mark`, up to the next "/"; empty when the form of payment does not contain `mark`.
TextView Behind(TextView mark, Element& payment) {
  const TextView form = FormOf(payment);
  const std::ptrdiff_t column = ColumnOf(form, mark);
  return column == 0 ? TextView() : Before(Trimmed(FromColumn(form, column + std::ssize(mark))), u"/");
}

std::optional<Value> PaymentSegment(Element& payment) {
  return Behind(kSegmentMark, payment);
}

std::optional<Value> PaymentPassenger(Element& payment) {
  return Behind(kPassengerMark, payment);
}

std::optional<Value> ExpiryDate(Element& payment) {
  return Behind(u"/X", payment);
}

std::optional<Value> ManualApproval(Element& payment) {
  return Behind(u"/N", payment);
}

constexpr Key kTicket[] = {
    kElement,
    kElementNr,
    {u"strKeyAction", AsReturned(u"Action")},
    {u"strKeyDate", HostDateOfText(u"Date")},
};
constexpr Key kFormOfPayment[] = {
    {u"strKeyElement", FormOfPayment},
    kElementNr,
    {u"strKeyValue", PaymentValue},
    {u"strKeyPasAsso", PaymentPassenger},
    {u"strKeySegAsso", PaymentSegment},
    {u"strKeyExpireDate", ExpiryDate},
    {u"strKeyManualApproval", ManualApproval},
};
constexpr Key kCommission[] = {
    kElement,
    kElementNr,
    {u"strKeyValue", AsReturned(u"Percent")},
};

constexpr GetAccessor kAccessors[] = {
    {GetMember::TicketElement,
     {.collection = Collection::Tickets,
      .bound = CountOf::TicketElements,
      .error = 2231,
      .keys = kTicket,
      .indexForm = IndexForm::ComparedFirst,
      .index = IndexIsRead::AgainForEachElement}},
    {GetMember::FormOfPaymentElement,
     {.collection = Collection::FormsOfPayment,
      .bound = CountOf::FormOfPaymentElements,
      .error = 2219,
      .keys = kFormOfPayment,
      .indexForm = IndexForm::ComparedFirst,
      .index = IndexIsRead::AgainForEachElement,
      .result = Result::CallersBag}},
    {GetMember::FareCommissionElement,
     {.collection = Collection::FareCommissions,
      .bound = CountOf::FareCommissionElements,
      .error = 2215,
      .keys = kCommission,
      .indexForm = IndexForm::ComparedFirst,
      .index = IndexIsRead::AgainForEachElement}},
};

}  // namespace

std::span<const GetAccessor> FareAccessors() {
  return kAccessors;
}

}  // namespace wendrill

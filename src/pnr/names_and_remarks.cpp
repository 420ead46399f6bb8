// Names, remarks, contacts, addresses and options. A value that is copied from a property keeps the type that the
// toolkit returns.
#include "common/numeric.h"
#include "common/text.h"
#include "pnr/accessor_tables.h"
#include "pnr/associations.h"

namespace wendrill {
namespace {

// The passenger type: the text after the first "(", without any ")"; nullopt when the text of the name has no "(".
std::optional<Value> PassengerType(Element& name) {
  const std::ptrdiff_t parenthesis = ColumnOf(name.Text(), u"(");
  if (parenthesis == 0) {
    return std::nullopt;
  }
  return Replaced(FromColumn(name.Text(), parenthesis + 1), u")", u"");
}

// The number of the passenger of a contact: the text after the first passenger mark "/P", if this text is a number.
// Empty when the text has no "/P", or when the text after "/P" is not a number. Intentional: blanks around the number
// are not removed.
std::optional<Value> ContactPassenger(Element& contact) {
  const std::ptrdiff_t mark = ColumnOf(contact.Text(), kPassengerMark);
  if (mark == 0) {
    return TextView();
  }
  const TextView rest = FromColumn(contact.Text(), mark + std::ssize(kPassengerMark));
  return IsNumeric(rest) ? rest : TextView();
}

struct RemarkParts {
  TextView passenger;
  TextView segment;
  TextView text;
};

// Cuts the passenger association, the segment association and the free text out of a remark, even for a key that needs
// only one of the three. So when one of them cannot be cut, reading the first of the three keys fails, and none of the
// three is stored. Raises 5 (invalid argument: a negative length) when the passenger mark is before the segment mark.
RemarkParts PartsOf(Element& remark) {
  const TextView text = remark.Text();
  const std::ptrdiff_t passenger = ColumnBeforeDigit(text, kPassengerMark);
  const std::ptrdiff_t segment = ColumnBeforeDigit(text, kSegmentMark);
  RemarkParts parts = {.passenger = PassengerAssociation(text, passenger),
                       .segment = SegmentAssociation(text, segment, passenger),
                       .text = remark.Text(Member::Name(u"FreeFlow"))};
  // Intentional: only a segment mark ends the free text. A passenger mark before the segment mark, or without a segment
  // mark, stays in the free text.
  if (const std::ptrdiff_t suffix = ColumnBeforeDigit(parts.text, kSegmentMark); suffix > 0) {
    parts.text = FirstColumns(parts.text, suffix - 1);
  }
  return parts;
}

std::optional<Value> RemarkPassenger(Element& remark) {
  return PartsOf(remark).passenger;
}

std::optional<Value> RemarkSegment(Element& remark) {
  return PartsOf(remark).segment;
}

std::optional<Value> RemarkText(Element& remark) {
  return PartsOf(remark).text;
}

constexpr Key kTextAndNumber[] = {kElement, kElementNr};
constexpr Key kContact[] = {kElement, kElementNr, {u"strKeyPasAsso", ContactPassenger}};
constexpr Key kName[] = {
    kElement,
    kElementNr,
    {u"strKeyInitial", AsReturned(u"Initial")},
    {u"strKeyLastName", AsReturned(u"LastName")},
    {u"strKeyPapType", PassengerType},
};
constexpr Key kRemark[] = {
    kElement,   {u"strKeyPasAsso", RemarkPassenger}, {u"strKeySegAsso", RemarkSegment},
    kElementNr, {u"strKeyText", RemarkText},
};

constexpr Accessor Of(Collection collection, CountOf bound, std::int32_t error, std::span<const Key> keys) {
  return {.collection = collection,
          .bound = bound,
          .error = error,
          .keys = keys,
          .indexForm = IndexForm::ComparedFirst,
          .index = IndexIsRead::AgainForEachElement};
}

constexpr GetAccessor kAccessors[] = {
    {GetMember::NameElement, Of(Collection::Names, CountOf::NameElements, 2223, kName)},
    {GetMember::BillingAddressElements,
     Of(Collection::BillingAddresses, CountOf::BillingAddressElements, 2235, kTextAndNumber)},
    {GetMember::ConfidentialRemarkElements,
     Of(Collection::ConfidentialRemarks, CountOf::ConfidentialRemarkElements, 2241, kTextAndNumber)},
    {GetMember::MailingAddressElements,
     Of(Collection::MailingAddresses, CountOf::MailingAddressElements, 2237, kTextAndNumber)},
    // Intentional: 2237 is also the error number of MailingAddressElements. Both members are published with the number
    // 2237.
    {GetMember::OptionElements, Of(Collection::Options, CountOf::OptionElements, 2237, kTextAndNumber)},
    {GetMember::ContactElements, Of(Collection::Contacts, CountOf::ContactElements, 2239, kContact)},
    {GetMember::RemarkElement, Of(Collection::Remarks, CountOf::RemarkElements, 2229, kRemark)},
};

}  // namespace

std::span<const GetAccessor> NameAndRemarkAccessors() {
  return kAccessors;
}

}  // namespace wendrill

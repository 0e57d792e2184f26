#include "corvex/common/variant_array.h"

#include "corvex/common/error.h"

namespace corvex {

VariantArray::VariantArray(std::vector<Variant> elements, std::int32_t lowerBound)
    : elements_(std::move(elements)), lowerBound_(lowerBound) {}

std::shared_ptr<VariantArray> VariantArray::make(std::vector<Variant> elements,
                                                 std::int32_t lowerBound) {
    return std::make_shared<VariantArray>(std::move(elements), lowerBound);
}

const ClassInfo& VariantArray::staticClassInfo() {
    static const ClassInfo info(
        u"Array", ClassKind::Object,
        MemberTable<VariantArray>()
            .getOnly(u"LBound", &VariantArray::lBound)
            .help(u"配列の最小の添字です。", u"The lowest index of the array.")
            .getOnly(u"UBound", &VariantArray::uBound)
            .help(u"配列の最大の添字です。", u"The highest index of the array.")
            .property(u"Item", &VariantArray::item, &VariantArray::setItem)
            .help(u"配列の要素です。", u"An element of the array.")
            .build(),
        {});
    return info;
}

std::int32_t VariantArray::uBound() const {
    return lowerBound_ + static_cast<std::int32_t>(elements_.size()) - 1;
}

std::size_t VariantArray::slot(std::int32_t i) const {
    const std::int64_t k = std::int64_t{i} - lowerBound_;
    if (k < 0 || k >= static_cast<std::int64_t>(elements_.size())) {
        throw Error(err::SubscriptOutOfRange);
    }
    return static_cast<std::size_t>(k);
}

Variant VariantArray::item(std::int32_t i) const {
    return elements_[slot(i)];
}

void VariantArray::setItem(std::int32_t i, Variant v) {
    elements_[slot(i)] = std::move(v);
}

}  // namespace corvex

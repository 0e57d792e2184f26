#include "corvex/common/messages.h"

#include "corvex/platform/site.h"

namespace corvex {

namespace {
std::vector<MessageText> commonMessages() {
    return {
        {msg::Caution, u"注意!!", u"Caution!!"},
        {msg::Warning, u"警告!!", u"Warning!!"},
        {msg::ErrorNumber, u"エラー番号", u"Error Number"},
        {msg::Error, u"エラー", u"Error"},
    };
}
}  // namespace

MessageTable::MessageTable(std::vector<MessageText> own, MessageText fallback)
    : entries_(commonMessages()), fallback_(std::move(fallback)) {
    entries_.insert(entries_.end(), own.begin(), own.end());
}

std::u16string MessageTable::text(int code, bool japanese) const {
    for (const auto& m : entries_) {
        if (m.code == code) return japanese ? m.japanese : m.english;
    }
    return japanese ? fallback_.japanese : fallback_.english;
}

MessageText undefinedWithStop() {
    return {0, u"未定義", u"Undefined."};
}
MessageText undefinedWithoutStop() {
    return {0, u"未定義", u"Undefined"};
}

std::u16string messageText(ControlSite& site, const MessageTable& table, int code) {
    return table.text(code, site.ambient().localeId() == LocaleJapanese);
}

void showRefusalText(ControlSite& site, const MessageTable& table, std::u16string text) {
    MessageBoxRequest r;
    r.text = std::move(text);
    r.style = mb::OkOnly + mb::Critical;
    r.title = messageText(site, table, msg::Warning);
    site.messageBoxes().messageBox(r);
}

void showRefusal(ControlSite& site, const MessageTable& table, std::initializer_list<int> codes) {
    std::u16string text;
    bool first = true;
    for (int code : codes) {
        if (!first) text += u'\r';
        text += messageText(site, table, code);
        first = false;
    }
    showRefusalText(site, table, std::move(text));
}

}  // namespace corvex

#include "corvex/headless/file_dialogs.h"

#include <cstring>

namespace corvex::headless {

namespace {

std::string text(const char* p) {
    return p ? std::string(p) : std::string();
}

// The filter list up to and including the NUL pair that ends it.
std::string filterList(const char* p) {
    if (!p) return {};
    std::size_t n = 0;
    while (!(p[n] == '\0' && p[n + 1] == '\0')) ++n;
    return std::string(p, n + 2);
}

}  // namespace

ShownFileDialog describeRequest(FileDialogKind kind, const FileDialogRequest& r) {
    ShownFileDialog s;
    s.kind = kind;
    s.owner = r.owner;
    s.flags = r.flags;
    s.filter = filterList(r.filter);
    s.filterIndex = r.filterIndex;
    s.file = r.file ? std::string(r.file, strnlen(r.file, r.maxFile)) : std::string();
    s.size = r.maxFile;
    s.initDir = text(r.initialDir);
    s.title = text(r.title);
    s.defExt = text(r.defExt);
    return s;
}

FileDialogResult ScriptedFileDialogs::show(FileDialogKind kind, FileDialogRequest& request) {
    shown_.push_back(describeRequest(kind, request));
    if (onShown) onShown(shown_.back());
    if (answers_.empty()) return {0, 0};
    const ScriptedDialogAnswer a = std::move(answers_.front());
    answers_.pop_front();
    switch (a.kind) {
        case ScriptedDialogAnswer::Kind::Cancel:
            return {0, 0};
        case ScriptedDialogAnswer::Kind::Fail:
            return {0, a.code};
        case ScriptedDialogAnswer::Kind::Ok:
            break;
    }
    if (a.filterIndex) request.filterIndex = *a.filterIndex;
    const std::uint32_t error =
        answerFileDialog(request, a.text.data(), static_cast<std::uint32_t>(a.text.size()));
    if (error != 0) return {0, error};
    return {1, 0};
}

}  // namespace corvex::headless

#include "corvex/files/dialog_record.h"

#include <atomic>
#include <cstring>
#include <new>
#include <vector>

#include "corvex/common/error.h"
#include "corvex/common/text.h"

namespace corvex {

namespace {

std::atomic<std::size_t> liveCount{0};

// The largest MaxFileSize a record is built for: the page offers up to 32 KB, and a name
// list of sixteen million characters is already far past any real folder.
constexpr std::int32_t LargestMaxFileSize = 0xFFFFFF;

// One block of global memory: taken when made, released when it goes, so that no path
// out of the dialog call (an error included) keeps one.
class Block {
public:
    explicit Block(std::size_t size) : size_(size) {
        try {
            data_ = std::make_unique<char[]>(size);  // zero-filled
        } catch (const std::bad_alloc&) {
            throw Error(32752, u"Couldn't allocate memory for FileName or Filter property");
        }
        ++liveCount;
    }
    ~Block() { --liveCount; }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    char* data() const { return data_.get(); }
    std::size_t size() const { return size_; }

private:
    std::unique_ptr<char[]> data_;
    std::size_t size_;
};

std::size_t boundedLength(const char* p, std::size_t capacity) {
    if (!p) return 0;
    const void* nul = std::memchr(p, 0, capacity);
    return nul ? static_cast<std::size_t>(static_cast<const char*>(nul) - p) : capacity;
}

}  // namespace

std::string dialogFilter(std::u16string_view filter) {
    std::string out = toUtf8(filter);
    for (char& c : out) {
        if (c == '|') c = '\0';
    }
    out += '\0';  // with the copy's own terminator the list ends in two NULs
    return out;
}

struct DialogRecord::Private {
    FileDialogRequest request;
    std::int32_t flags = 0;
    std::size_t fileCapacity = 0;  // kept here: the dialog may write over the record
    std::size_t titleCapacity = 0;
    std::vector<std::unique_ptr<Block>> blocks;

    Block& take(std::size_t size) {
        blocks.push_back(std::make_unique<Block>(size));
        return *blocks.back();
    }
    // An 8-bit copy of text with its NUL. The block is sized at two bytes a character as
    // the original is; UTF-8 can need three, so it grows to what the text needs.
    const char* copy(std::string_view bytes, std::size_t characters) {
        Block& b = take(std::max(2 * (characters + 1), bytes.size() + 1));
        std::memcpy(b.data(), bytes.data(), bytes.size());
        return b.data();
    }
    const char* copy(std::u16string_view text) { return copy(toUtf8(text), text.size()); }
};

DialogRecord::DialogRecord(const DialogSettings& s) : d(std::make_unique<Private>()) {
    if (s.maxFileSize < 0 || s.maxFileSize > LargestMaxFileSize) {
        throw Error(err::InvalidPropertyValue, u"MaxFileSize must lie between 0 and " +
                                                   u16(std::to_string(LargestMaxFileSize)));
    }
    const auto capacity = static_cast<std::size_t>(s.maxFileSize) * 2 + 1;
    const std::string name = toUtf8(s.fileName);
    if (name.size() + 1 > capacity) {
        throw Error(20476, u"The buffer at which the member lpstrFile points is too small");
    }
    FileDialogRequest& r = d->request;
    d->flags = s.flags;
    r.owner = s.owner;
    if (!s.filter.empty()) {
        const std::string list = dialogFilter(s.filter);
        r.filter = d->copy(list, s.filter.size() + 1);
    }
    r.filterIndex = static_cast<std::uint32_t>(static_cast<std::int32_t>(s.filterIndex));
    Block& file = d->take(capacity);
    std::memcpy(file.data(), name.data(), name.size());
    file.data()[name.size()] = '\0';
    std::memset(file.data() + name.size() + 1, ' ', capacity - name.size() - 1);
    r.file = file.data();
    r.maxFile = static_cast<std::uint32_t>(capacity);
    d->fileCapacity = d->titleCapacity = capacity;
    r.fileTitle = d->take(capacity).data();
    r.maxFileTitle = static_cast<std::uint32_t>(capacity);
    r.initialDir = d->copy(s.initDir);
    r.title = d->copy(s.title);
    r.flags = static_cast<std::uint32_t>(s.flags);
    r.defExt = d->copy(s.defaultExt);
}

DialogRecord::~DialogRecord() = default;

FileDialogRequest& DialogRecord::request() {
    return d->request;
}

DialogAnswer DialogRecord::readBack() const {
    const FileDialogRequest& r = d->request;
    // The capacities are the record's own, not what the dialog may have written there.
    const std::size_t fileCapacity = d->fileCapacity;
    DialogAnswer a;
    a.filterIndex = static_cast<std::int16_t>(r.filterIndex);
    const std::size_t n = boundedLength(r.file, fileCapacity);
    std::size_t end = n;
    if ((d->flags & ofn::AllowMultiSelect) && n < r.fileOffset) {
        // Explorer-style multi-selection: the folder and the names, each ending in a NUL,
        // the list ending in two; everything up to that pair is kept.
        end = n;
        while (end + 1 < fileCapacity && !(r.file[end] == '\0' && r.file[end + 1] == '\0')) {
            ++end;
        }
    }
    a.fileName = fromUtf8(std::string_view(r.file, end));
    a.fileTitle =
        fromUtf8(std::string_view(r.fileTitle, boundedLength(r.fileTitle, d->titleCapacity)));
    return a;
}

std::size_t DialogRecord::liveBlocks() {
    return liveCount.load();
}

}  // namespace corvex

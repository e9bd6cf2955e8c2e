#include "platform/linux/registry/lmdb_check.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <span>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/registry/store_transaction.h"

namespace tovera {
namespace {

// The layout of LMDB's files, data version 1, with words of 64 bits in the machine's own byte order.
constexpr std::uint32_t magic = 0xBEEFC0DE;
constexpr std::uint32_t version = 1;
constexpr std::size_t pageHeaderSize = 16;
constexpr std::size_t nodeHeaderSize = 8;
constexpr std::uint64_t noPage = ~std::uint64_t{0};
constexpr std::uint64_t metaPages = 2;
constexpr std::uint64_t mostMapSize = std::uint64_t{1} << 46;
constexpr std::uint16_t integerKeys = 8;
constexpr unsigned maxDepth = 32;

enum PageFlags : std::uint16_t { branchPage = 1, leafPage = 2, overflowPage = 4 };
constexpr std::uint16_t bigDataNode = 1;

struct Tree {
    std::uint32_t pageSize;  // of the first tree only
    std::uint16_t flags;
    std::uint16_t depth;
    std::uint64_t branchPages;
    std::uint64_t leafPages;
    std::uint64_t overflowPages;
    std::uint64_t entries;
    std::uint64_t root;
};

struct Meta {
    std::uint32_t magic;
    std::uint32_t version;
    std::uint64_t address;
    std::uint64_t mapSize;
    Tree freePages;
    Tree main;
    std::uint64_t lastPage;
    std::uint64_t transaction;
};

struct PageHeader {
    std::uint64_t number;
    std::uint16_t pad;
    std::uint16_t flags;
    std::uint16_t lower;  // with upper the count of pages in an overflow page
    std::uint16_t upper;
};

struct Node {
    std::uint16_t low;
    std::uint16_t high;
    std::uint16_t flags;
    std::uint16_t keySize;
};

struct Damage {};

void require(bool holds) {
    if (!holds) throw Damage();
}

template <class T>
T readAt(Bytes bytes, std::size_t offset) {
    require(offset <= bytes.size() && bytes.size() - offset >= sizeof(T));
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

std::string_view textOf(Bytes bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

class Check {
  public:
    explicit Check(Bytes file) : file_(file) {}

    void run() {
        checkHead();
        require(meta_.lastPage < file_.size() / pageSize_);
        reached_.assign(meta_.lastPage + 1, false);
        walkTree(meta_.freePages, true);
        walkTree(meta_.main, false);
    }

    /// The two pages in front of all others, of which the younger one counts.
    void checkHead() {
        const auto first = readAt<Meta>(file_, pageHeaderSize);
        pageSize_ = first.freePages.pageSize;
        require(std::has_single_bit(pageSize_) && pageSize_ >= 512 && pageSize_ <= 65536);
        const auto second = readAt<Meta>(file_, pageSize_ + pageHeaderSize);
        for (const auto& meta : {first, second}) checkMeta(meta);
        meta_ = first.transaction > second.transaction ? first : second;
    }

  private:
    void checkMeta(const Meta& meta) const {
        require(meta.magic == magic && meta.version == version && meta.address == 0);
        require(meta.freePages.pageSize == pageSize_ && meta.freePages.flags == integerKeys);
        require(meta.main.pageSize == 0 && meta.main.flags == 0);
        require(meta.mapSize / pageSize_ > meta.lastPage && meta.mapSize < mostMapSize);
    }

    void walkTree(const Tree& tree, bool isFreeList) {
        isFreeList_ = isFreeList;
        entries_ = 0;
        lastKey_.reset();
        if (tree.root == noPage) {
            require(tree.entries == 0);
            return;
        }
        walkPage(tree.root, tree.depth);
        require(entries_ == tree.entries);
    }

    void reach(std::uint64_t number, std::uint64_t count = 1) {
        require(number >= metaPages && number < reached_.size() && count <= reached_.size() - number);
        for (auto page = number; page < number + count; ++page) {
            require(!reached_[page]);
            reached_[page] = true;
        }
    }

    Bytes pageAt(std::uint64_t number) const { return file_.subspan(number * pageSize_, pageSize_); }

    void walkPage(std::uint64_t number, unsigned depth) {
        reach(number);
        require(depth >= 1 && depth <= maxDepth);
        const auto page = pageAt(number);
        const auto header = readAt<PageHeader>(page, 0);
        const bool isLeaf = depth == 1;
        require(header.number == number && header.flags == (isLeaf ? leafPage : branchPage));
        require(header.lower >= pageHeaderSize && header.lower <= header.upper && header.upper <= pageSize_);
        const auto count = (header.lower - pageHeaderSize) / 2;
        require(count > 0);
        for (std::size_t i = 0; i < count; ++i) {
            const auto offset = readAt<std::uint16_t>(page, pageHeaderSize + 2 * i);
            require(offset >= header.upper);
            const auto node = readAt<Node>(page, offset);
            require(page.size() - offset - nodeHeaderSize >= node.keySize);
            const auto content = page.subspan(offset + nodeHeaderSize);
            if (isLeaf) {
                walkEntry(node, content);
            } else {
                if (i > 0) passKey(content.first(node.keySize), false);
                walkPage(node.low | std::uint64_t{node.high} << 16 | std::uint64_t{node.flags} << 32,
                         depth - 1);
            }
        }
    }

    void walkEntry(const Node& node, Bytes content) {
        ++entries_;
        const auto key = content.first(node.keySize);
        const std::size_t size = node.low | std::size_t{node.high} << 16;
        auto data = content.subspan(node.keySize);
        require((node.flags & ~bigDataNode) == 0);
        if (node.flags & bigDataNode) {
            data = overflowAt(readAt<std::uint64_t>(data, 0), size);
        } else {
            require(data.size() >= size);
        }
        passKey(key, true);
        if (isFreeList_) reachFreePages(data.first(size));
    }

    /// Keys ascend, each page's first one not below the key that leads to the page.
    void passKey(Bytes key, bool isEntry) {
        require(!isFreeList_ || key.size() == sizeof(std::uint64_t));
        if (lastKey_) {
            const auto order = compare(*lastKey_, key);
            require(order < 0 || (order == 0 && isEntry && !lastWasEntry_));
        }
        lastKey_ = key;
        lastWasEntry_ = isEntry;
    }

    int compare(Bytes a, Bytes b) const {
        if (!isFreeList_) return textOf(a).compare(textOf(b));
        const auto numberOfA = readAt<std::uint64_t>(a, 0);
        const auto numberOfB = readAt<std::uint64_t>(b, 0);
        return numberOfA < numberOfB ? -1 : numberOfA > numberOfB ? 1 : 0;
    }

    Bytes overflowAt(std::uint64_t number, std::size_t size) {
        require(number < reached_.size());
        const auto header = readAt<PageHeader>(pageAt(number), 0);
        const auto count = header.lower | std::uint64_t{header.upper} << 16;
        require(header.number == number && header.flags == overflowPage);
        require(count * pageSize_ >= pageHeaderSize + size);
        reach(number, count);
        return file_.subspan(number * pageSize_ + pageHeaderSize, count * pageSize_ - pageHeaderSize);
    }

    /// An entry of the list of free pages: their count, then their numbers.
    void reachFreePages(Bytes data) {
        const auto count = readAt<std::uint64_t>(data, 0);
        require(count <= data.size() / 8 - 1);
        for (std::uint64_t i = 1; i <= count; ++i) reach(readAt<std::uint64_t>(data, i * 8));
    }

    Bytes file_;
    std::uint64_t pageSize_ = 0;
    Meta meta_{};
    std::vector<bool> reached_;
    std::uint64_t entries_ = 0;
    bool isFreeList_ = false;
    std::optional<Bytes> lastKey_;
    bool lastWasEntry_ = false;
};

/// The bytes of a file, mapped for reading; none for a missing one, and for what is no file. A file that
/// can't be read tells nothing of its bytes: that is a failure of its own.
class MappedFile {
  public:
    explicit MappedFile(const std::string& file) {
        const FileDescriptor opened(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
        if (!opened.isOpen() && errno == ENOENT) return;
        if (!opened.isOpen()) throw StoreFailure{errno};
        struct stat facts {};
        if (fstat(opened.get(), &facts) == 0 && S_ISREG(facts.st_mode) && facts.st_size > 0) {
            size_ = static_cast<std::size_t>(facts.st_size);
            address_ = mmap(nullptr, size_, PROT_READ, MAP_SHARED, opened.get(), 0);
        }
        if (address_ == MAP_FAILED) throw StoreFailure{errno};
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile() {
        if (size_ > 0) munmap(address_, size_);
    }

    Bytes bytes() const { return {static_cast<const std::byte*>(address_), size_}; }

  private:
    void* address_ = nullptr;
    std::size_t size_ = 0;
};

template <class Work>
bool holds(const std::string& file, Work&& work) {
    const MappedFile mapped(file);
    Check check(mapped.bytes());
    try {
        work(check);
        return true;
    } catch (const Damage&) {
        return false;
    }
}

}  // namespace

bool isSoundStore(const std::string& file) {
    return holds(file, [](Check& check) { check.run(); });
}

bool hasSoundHead(const std::string& file) {
    return holds(file, [](Check& check) { check.checkHead(); });
}

}  // namespace tovera

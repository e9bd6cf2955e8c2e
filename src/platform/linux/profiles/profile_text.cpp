#include "platform/linux/profiles/profile_text.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "platform/linux/text/letter_case.h"

namespace tovera {
namespace {

constexpr char commentMark = ';';
constexpr std::string_view usualLineEnd = "\r\n";

std::string_view firstLineEnd(std::string_view text) {
    if (text.empty()) return usualLineEnd;
    const auto found = ProfileLines(text).next().lineEnd();
    return found.empty() ? usualLineEnd : found;
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    while (!text.empty() && isProfileBlank(text.front())) text.remove_prefix(1);
    return text;
}

std::size_t offsetIn(std::string_view text, const char* p) {
    return static_cast<std::size_t>(p - text.data());
}

std::string lineOf(std::string_view key, std::string_view value, std::string_view lineEnd) {
    return std::string(key).append("=").append(value).append(lineEnd);
}

std::optional<ProfileEdit> editOfLine(std::string_view text, const ProfileLine& line,
                                      std::string_view value) {
    const auto old = line.value();
    if (!old) {
        const auto content = line.content();
        return ProfileEdit{offsetIn(text, content.data() + content.size()), 0, '=' + std::string(value)};
    }
    if (*old == withoutBlanks(value)) return {};
    return ProfileEdit{offsetIn(text, old->data()), old->size(), std::string(value)};
}

/// What is to be written in one section, and where it stands.
class SectionPlan {
  public:
    explicit SectionPlan(std::string_view name) : name_(withoutBlanks(name)) {}

    void add(const EntryWrite& write) {
        writes_.push_back(&write);
        SoughtName key(write.key);
        if (key.canBeKey()) awaited_.emplace(std::move(key).capitals(), writes_.size() - 1);
    }

    /// Of sections with the same name the first one counts.
    bool begin(const char* place) {
        if (!isFound_) rear_ = place;
        return !std::exchange(isFound_, true);
    }

    /// Looks at a line of the section: its header too, which isn't written to.
    void pass(std::string_view text, const ProfileLine& line, bool isHeader, ProfileEdits& edits) {
        if (line.isBlank() || (!isHeader && isWritten(text, line, edits))) return;
        rear_ = line.next();
        rearLineEnd_ = line.lineEnd();
    }

    bool isFound() const { return isFound_; }
    std::size_t place(std::string_view text) const { return offsetIn(text, rear_); }
    bool lineIsOpen(std::string_view text) const { return place(text) > 0 && rearLineEnd_.empty(); }
    std::string_view lineEnd(std::string_view text) const {
        return rearLineEnd_.empty() ? firstLineEnd(text) : rearLineEnd_;
    }
    std::string_view name() const { return name_; }

    /// The entries that no line was found for.
    std::string newLines(std::string_view lineEnd) const {
        std::string lines;
        for (const auto* write : writes_)
            if (write && write->value)
                lines.append(lineOf(withoutBlanks(write->key), withoutLeadingBlanks(*write->value), lineEnd));
        return lines;
    }

  private:
    /// Makes the write that is meant for this line. True when the line goes.
    bool isWritten(std::string_view text, const ProfileLine& line, ProfileEdits& edits) {
        const auto found = awaited_.find(SoughtName(line.key()).capitals());
        if (found == awaited_.end()) return false;
        const auto* const write = std::exchange(writes_[found->second], nullptr);
        awaited_.erase(found);
        if (!write->value) {
            const auto position = offsetIn(text, line.start());
            edits.push_back({position, offsetIn(text, line.next()) - position, {}});
            return true;
        }
        auto edit = editOfLine(text, line, withoutLeadingBlanks(*write->value));
        if (edit) edits.push_back(std::move(*edit));
        return false;
    }

    std::string_view name_;
    std::vector<const EntryWrite*> writes_;  ///< null for one that was made
    std::unordered_map<std::string, std::size_t> awaited_;
    bool isFound_ = false;
    const char* rear_ = nullptr;  ///< behind its last line that isn't blank: the place of new entries
    std::string_view rearLineEnd_;
};

using SectionPlans = std::vector<SectionPlan>;

/// The plans by the names of their sections, in the order of the first writes.
class PlansByName {
  public:
    explicit PlansByName(std::span<const EntryWrite> writes) {
        for (const auto& write : writes) {
            const auto [place, isNew] =
                places_.try_emplace(SoughtName(write.section).capitals(), plans_.size());
            if (isNew) plans_.emplace_back(write.section);
            plans_[place->second].add(write);
        }
    }
    SectionPlan* begin(std::string_view section, const char* place) {
        const auto found = places_.find(SoughtName(section).capitals());
        return found != places_.end() && plans_[found->second].begin(place) ? &plans_[found->second]
                                                                            : nullptr;
    }
    const SectionPlans& inOrder() const { return plans_; }

  private:
    SectionPlans plans_;
    std::unordered_map<std::string, std::size_t> places_;
};

/// The writes to lines that there are.
ProfileEdits editsOfLines(std::string_view text, PlansByName& plans) {
    ProfileEdits edits;
    auto* current = plans.begin({}, text.data());
    for (ProfileLines lines(text); !lines.atEnd();) {
        const auto line = lines.next();
        const auto header = line.header();
        if (header) current = plans.begin(*header, line.start());
        if (current) current->pass(text, line, header.has_value(), edits);
    }
    return edits;
}

void addNewEntries(std::string_view text, const SectionPlans& plans, ProfileEdits& edits) {
    for (const auto& plan : plans) {
        if (!plan.isFound()) continue;
        const auto lineEnd = plan.lineEnd(text);
        auto lines = plan.newLines(lineEnd);
        if (lines.empty()) continue;
        edits.push_back({plan.place(text), 0, (plan.lineIsOpen(text) ? std::string(lineEnd) : "") + lines});
    }
}

void addNewSections(std::string_view text, const SectionPlans& plans, ProfileEdits& edits) {
    const auto lineEnd = firstLineEnd(text);
    const auto isOpen = [](std::string_view part) {
        return !part.empty() && part.back() != '\n' && part.back() != '\r';
    };
    bool lineIsOpen = isOpen(text) && std::ranges::none_of(edits, [&](const ProfileEdit& edit) {
                          const bool isLast = edit.position + edit.length == text.size();
                          return isLast && !edit.replacement.empty() && !isOpen(edit.replacement);
                      });
    for (const auto& plan : plans) {
        if (plan.isFound()) continue;
        const auto lines = plan.newLines(lineEnd);
        if (lines.empty()) continue;
        std::string section(std::exchange(lineIsOpen, false) ? lineEnd : std::string_view());
        section.append("[").append(plan.name()).append("]").append(lineEnd).append(lines);
        edits.push_back({text.size(), 0, std::move(section)});
    }
}

}  // namespace

SoughtName::SoughtName(std::string_view name) : table_(ansiCapitals()), capitals_(withoutBlanks(name)) {
    for (auto& c : capitals_) c = table_[static_cast<std::uint8_t>(c)];
    canBeKey_ = capitals_.find('=') == std::string::npos;
}

ProfileSearch::ProfileSearch(std::string_view section, std::string_view key)
    : section_(section), key_(key), inSection_(section_.empty()) {}

bool ProfileSearch::goesOnAfter(std::string_view text) {
    if (!key_.canBeKey()) return false;
    for (ProfileLines lines(text); !lines.atEnd();) {
        const auto line = lines.next();
        if (const auto header = line.header()) {
            if (inSection_) return false;
            inSection_ = section_.matches(*header);
        } else if (inSection_ && line.isEntry(key_)) {
            value_ = line.value();
            return false;
        }
    }
    return true;
}

std::string profileSections(std::string_view text) {
    std::string names;
    for (ProfileLines lines(text); !lines.atEnd();) {
        const auto header = lines.next().header();
        if (header && !header->empty()) names.append(*header).append(1, '\0');
    }
    return names;
}

std::string profileKeys(std::string_view text, std::string_view section) {
    const SoughtName sought(section);
    std::string names;
    bool inSection = sought.empty();
    for (ProfileLines lines(text); !lines.atEnd();) {
        const auto line = lines.next();
        if (const auto header = line.header()) {
            if (inSection) break;
            inSection = sought.matches(*header);
        } else if (inSection && line.value()) {
            const auto key = line.key();
            if (!key.empty() && !key.starts_with(commentMark)) names.append(key).append(1, '\0');
        }
    }
    return names;
}

ProfileEdits editsFor(std::string_view text, std::span<const EntryWrite> writes) {
    PlansByName plans(writes);
    auto edits = editsOfLines(text, plans);
    addNewEntries(text, plans.inOrder(), edits);
    addNewSections(text, plans.inOrder(), edits);
    // What is put in front of a line comes before what happens to the line.
    std::ranges::stable_sort(
        edits, {}, [](const ProfileEdit& edit) { return std::pair(edit.position, edit.length > 0); });
    return edits;
}

ProfileEdits editsToRemoveSection(std::string_view text, std::string_view section) {
    const SoughtName sought(section);
    bool isFound = sought.empty();
    std::size_t begin = 0;
    std::size_t end = 0;
    for (ProfileLines lines(text); !lines.atEnd();) {
        const auto line = lines.next();
        if (const auto header = line.header()) {
            if (isFound) break;
            isFound = sought.matches(*header);
            begin = offsetIn(text, line.start());
        }
        if (isFound) end = offsetIn(text, line.next());
    }
    if (begin >= end) return {};
    return {{begin, end - begin, {}}};
}

std::optional<std::string> withEdits(std::string_view text, const ProfileEdits& edits) {
    if (edits.empty()) return std::nullopt;
    return withEdits(std::string(text), edits, [](const std::string& replacement) { return replacement; });
}

}  // namespace tovera

#include "Package/History.h"

#include "Common/Failure.h"

#include <algorithm>
#include <tuple>
#include <utility>

History::History(std::vector<HistoryCommit> commits, const std::vector<Identifier>& heads)
    : commits_(std::move(commits)), publishedHeadCount_(heads.size()) {
    std::ranges::sort(commits_, {}, [](const HistoryCommit& commit) {
        return std::tie(commit.generation, commit.createdAtMilliseconds, commit.identifier);
    });
    for (std::size_t index = 0; index < commits_.size(); ++index) {
        indexes_.emplace(commits_[index].identifier, index);
    }
    resolveParents();
    chooseRetainedTips(heads);
    chooseDisposition();
    chooseCodeLength();
}

std::vector<std::size_t> History::branchOf(std::size_t tip) const {
    std::vector<bool> isOnBranch = ancestorsOf({tip});
    isOnBranch[tip] = true;
    std::vector<std::size_t> branch;
    for (std::size_t index = tip + 1; index-- > 0;) {
        if (isOnBranch[index]) {
            branch.push_back(index);
        }
    }
    return branch;
}

std::string History::selectionCode(std::size_t index) const {
    return commits_[index].identifier.hexadecimal().substr(0, codeLength_);
}

std::optional<std::size_t> History::find(std::string_view selectionCode) const {
    for (std::size_t index = 0; index < commits_.size(); ++index) {
        if (this->selectionCode(index) == selectionCode) {
            return index;
        }
    }
    return std::nullopt;
}

std::size_t History::indexOf(const Identifier& identifier) const {
    const auto found = indexes_.find(identifier);
    if (found == indexes_.end()) {
        throw Failure(FailureReason::integrity, "a commit of the history is missing");
    }
    return found->second;
}

void History::resolveParents() {
    for (const HistoryCommit& commit : commits_) {
        std::vector<std::size_t>& parents = parents_.emplace_back();
        for (const Identifier& parent : commit.parents) {
            parents.push_back(indexOf(parent));
            if (commits_[parents.back()].generation >= commit.generation) {
                throw Failure(FailureReason::integrity, "the history contradicts itself");
            }
        }
    }
}

void History::chooseRetainedTips(const std::vector<Identifier>& heads) {
    std::vector<std::size_t> candidates;
    candidates.reserve(heads.size());
    for (const Identifier& head : heads) {
        candidates.push_back(indexOf(head));
    }
    if (candidates.empty()) {
        for (std::size_t index = 0; index < commits_.size(); ++index) {
            candidates.push_back(index);
        }
    }
    const std::vector<bool> isContinued = ancestorsOf(candidates);
    retained_.assign(commits_.size(), false);
    for (const std::size_t candidate : candidates) {
        retained_[candidate] = !isContinued[candidate];
    }
}

// Commits are sorted by generation, and every parent has a lower one, so a backward pass visits each commit after all
// its children.
std::vector<bool> History::ancestorsOf(const std::vector<std::size_t>& tips) const {
    std::vector<bool> isTip(commits_.size(), false);
    for (const std::size_t tip : tips) {
        isTip[tip] = true;
    }
    std::vector<bool> isAncestor(commits_.size(), false);
    for (std::size_t index = commits_.size(); index-- > 0;) {
        if (isTip[index] || isAncestor[index]) {
            for (const std::size_t parent : parents_[index]) {
                isAncestor[parent] = true;
            }
        }
    }
    return isAncestor;
}

void History::chooseDisposition() {
    const auto tips = std::ranges::count(retained_, true);
    if (publishedHeadCount_ == 0) {
        disposition_ = BranchDisposition::noPublishedHead;
    } else if (tips > 1) {
        disposition_ = BranchDisposition::unresolvedFork;
    } else {
        // A single line: the only parent of every commit but the first is the commit before it.
        bool isOneLine = retained_.back() && parents_.front().empty();
        for (std::size_t index = 1; index < parents_.size(); ++index) {
            isOneLine = isOneLine && parents_[index] == std::vector<std::size_t>{index - 1};
        }
        disposition_ = isOneLine ? BranchDisposition::singleBranch : BranchDisposition::canonicalBranch;
    }
}

void History::chooseCodeLength() {
    std::vector<std::string> names;
    for (const HistoryCommit& commit : commits_) {
        names.push_back(commit.identifier.hexadecimal());
    }
    std::ranges::sort(names);
    for (std::size_t index = 1; index < names.size(); ++index) {
        const auto [first, second] = std::ranges::mismatch(names[index - 1], names[index]);
        codeLength_ = std::max(codeLength_, static_cast<std::size_t>(first - names[index - 1].begin()) + 1);
    }
}

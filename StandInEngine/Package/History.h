#pragma once

#include "Package/BranchDisposition.h"
#include "Package/HistoryCommit.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The commits of a package as a graph with edges from each commit to its parents. Immutable.
class History {
public:
    /// `heads` are the published heads. Throws Failure (integrity) if a parent or a head is not among the commits, or
    /// if a generation is not higher than those of all parents, which also rules out cycles.
    History(std::vector<HistoryCommit> commits, const std::vector<Identifier>& heads);

    /// All commits, sorted by generation, then by creation time, then by identifier.
    const std::vector<HistoryCommit>& commits() const { return commits_; }
    std::size_t publishedHeadCount() const { return publishedHeadCount_; }
    BranchDisposition disposition() const { return disposition_; }

    /// Whether the commit is a retained tip: a published head that is not an ancestor of another one or, if no head is
    /// published, a commit without children. Indexes are those of commits().
    bool isRetainedTip(std::size_t index) const { return retained_[index]; }

    /// The commit and all its ancestors, latest first.
    std::vector<std::size_t> branchOf(std::size_t tip) const;

    /// The short code that identifies a snapshot externally: the first digits of its identifier, at least twelve, and
    /// as many more as are needed to make the codes of this package unique.
    std::string selectionCode(std::size_t index) const;
    /// Returns the commit with exactly that code, or std::nullopt.
    std::optional<std::size_t> find(std::string_view selectionCode) const;

private:
    std::size_t indexOf(const Identifier& identifier) const;
    void resolveParents();
    void chooseRetainedTips(const std::vector<Identifier>& heads);
    std::vector<bool> ancestorsOf(const std::vector<std::size_t>& tips) const;
    void chooseDisposition();
    void chooseCodeLength();

    std::vector<HistoryCommit> commits_;
    std::unordered_map<Identifier, std::size_t> indexes_;
    std::vector<std::vector<std::size_t>> parents_;
    std::vector<bool> retained_;
    std::size_t publishedHeadCount_ = 0;
    std::size_t codeLength_ = 12;
    BranchDisposition disposition_ = BranchDisposition::noPublishedHead;
};

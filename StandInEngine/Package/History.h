#pragma once

#include "Package/BranchDisposition.h"
#include "Package/HistoryCommit.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The commits of a package as a graph from every commit to its parents. Immutable.
class History {
public:
    /// `heads` names the published heads. Throws Failure (integrity) when a parent or a head is not among the commits,
    /// or when a generation is not higher than those of all parents, which also rules out circles.
    History(std::vector<HistoryCommit> commits, const std::vector<Identifier>& heads);

    /// All commits: by generation, then by time of creation, then by identifier.
    const std::vector<HistoryCommit>& commits() const { return commits_; }
    std::size_t publishedHeadCount() const { return publishedHeadCount_; }
    BranchDisposition disposition() const { return disposition_; }

    /// Whether the commit is a tip that the history keeps: a published head that no other one continues, or, where no
    /// head is published, a commit without children. Indexes are those of commits().
    bool isRetainedTip(std::size_t index) const { return retained_[index]; }

    /// The commit and everything before it, latest first.
    std::vector<std::size_t> branchOf(std::size_t tip) const;

    /// The short code that names a snapshot to the outside: the first digits of its identifier, at least twelve, and
    /// as many more as it takes to tell all commits of this package apart.
    std::string selectionCode(std::size_t index) const;
    /// The commit with exactly that code.
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

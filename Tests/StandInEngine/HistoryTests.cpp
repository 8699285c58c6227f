#include "Package/History.h"

#include "Common/Failure.h"

#include <gtest/gtest.h>

#include <set>

namespace {

// Identifiers whose first digits are the number, so that commits can be told apart in messages.
Identifier identifier(std::uint8_t number) {
    Identifier result;
    result.bytes.fill(number);
    return result;
}

HistoryCommit commit(std::uint8_t number, std::uint64_t generation, const std::vector<std::uint8_t>& parents = {}) {
    HistoryCommit result;
    result.identifier = identifier(number);
    result.generation = generation;
    for (const std::uint8_t parent : parents) {
        result.parents.push_back(identifier(parent));
    }
    return result;
}

// The numbers of the commits that are retained tips.
std::set<int> tipsOf(const History& history) {
    std::set<int> tips;
    for (std::size_t index = 0; index < history.commits().size(); ++index) {
        if (history.isRetainedTip(index)) {
            tips.insert(history.commits()[index].identifier.bytes[0]);
        }
    }
    return tips;
}

const std::vector<HistoryCommit> straight = {commit(1, 1), commit(2, 2, {1}), commit(3, 3, {2})};
const std::vector<HistoryCommit> forked = {commit(1, 1), commit(2, 2, {1}), commit(3, 2, {1})};

} // namespace

TEST(HistoryTest, aLinearHistoryIsASingleBranch) {
    const History history(straight, {identifier(3)});
    EXPECT_EQ(BranchDisposition::singleBranch, history.disposition());
    EXPECT_EQ(std::set{3}, tipsOf(history));
    EXPECT_EQ((std::vector<std::size_t>{2, 1, 0}), history.branchOf(2));
}

TEST(HistoryTest, twoHeadsAreAnUnresolvedFork) {
    const History history(forked, {identifier(2), identifier(3)});
    EXPECT_EQ(BranchDisposition::unresolvedFork, history.disposition());
    EXPECT_EQ((std::set{2, 3}), tipsOf(history));
    EXPECT_EQ((std::vector<std::size_t>{1, 0}), history.branchOf(1));
    EXPECT_EQ((std::vector<std::size_t>{2, 0}), history.branchOf(2));
}

TEST(HistoryTest, aHeadThatAnotherContinuesIsNoFork) {
    const History history(straight, {identifier(2), identifier(3)});
    EXPECT_EQ(BranchDisposition::singleBranch, history.disposition());
    EXPECT_EQ(std::set{3}, tipsOf(history));
}

TEST(HistoryTest, aMergedOrAbandonedForkHasACanonicalBranch) {
    std::vector<HistoryCommit> joined = forked;
    joined.push_back(commit(4, 3, {2, 3}));
    EXPECT_EQ(BranchDisposition::canonicalBranch, History(joined, {identifier(4)}).disposition());
    const History givenUp(forked, {identifier(3)});
    EXPECT_EQ(BranchDisposition::canonicalBranch, givenUp.disposition());
    EXPECT_EQ(std::set{3}, tipsOf(givenUp));
}

TEST(HistoryTest, withoutAHeadTheLastCommitsAreKept) {
    const History history(forked, {});
    EXPECT_EQ(BranchDisposition::noPublishedHead, history.disposition());
    EXPECT_EQ((std::set{2, 3}), tipsOf(history));
    EXPECT_EQ(BranchDisposition::noPublishedHead, History({}, {}).disposition());
}

TEST(HistoryTest, contradictionsAreRefused) {
    EXPECT_THROW(History({commit(2, 2, {1})}, {}), Failure) << "a parent that is missing";
    EXPECT_THROW(History({commit(1, 1)}, {identifier(2)}), Failure) << "a head that is missing";
    EXPECT_THROW(History({commit(1, 1, {1})}, {}), Failure) << "its own parent";
    EXPECT_THROW(History({commit(1, 1, {2}), commit(2, 1, {1})}, {}), Failure) << "a circle";
    EXPECT_THROW(History({commit(1, 2), commit(2, 2, {1})}, {}), Failure) << "a generation that does not grow";
}

TEST(HistoryTest, codesDistinguishAllCommits) {
    std::vector<HistoryCommit> alike = {commit(7, 1), commit(7, 2)};
    alike[1].identifier.bytes[9] = 8;
    const History history(alike, {});
    EXPECT_NE(history.selectionCode(0), history.selectionCode(1));
    EXPECT_EQ(20U, history.selectionCode(0).size());
    EXPECT_EQ(0U, history.find(history.selectionCode(0)));
    EXPECT_EQ(1U, history.find(history.selectionCode(1)));
    EXPECT_EQ(std::nullopt, history.find(history.selectionCode(0).substr(0, 12)));
    EXPECT_EQ(12U, History(straight, {}).selectionCode(0).size());
}

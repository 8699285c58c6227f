// The history of the stand-in's packages: any graph of commits, against plain answers to the same questions.

#include "Common/Failure.h"
#include "Fuzz/FuzzInput.h"
#include "Fuzz/Fuzzing.h"
#include "Package/History.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

using Fuzzing::expect;

/// The graph as it was put in.
struct Graph {
    std::map<Identifier, HistoryCommit> commits;
    std::vector<Identifier> heads;

    bool isSound() const {
        return std::ranges::all_of(heads, [this](const Identifier& head) { return commits.contains(head); }) &&
               std::ranges::all_of(commits, [this](const auto& entry) { return hasSoundParents(entry.second); });
    }

    bool hasSoundParents(const HistoryCommit& commit) const {
        return std::ranges::all_of(commit.parents, [&](const Identifier& parent) {
            const auto found = commits.find(parent);
            return found != commits.end() && found->second.generation < commit.generation;
        });
    }

    std::set<Identifier> before(const Identifier& commit) const {
        std::set<Identifier> found;
        std::vector<Identifier> open = commits.at(commit).parents;
        while (!open.empty()) {
            const Identifier next = open.back();
            open.pop_back();
            if (found.insert(next).second) {
                const std::vector<Identifier>& parents = commits.at(next).parents;
                open.insert(open.end(), parents.begin(), parents.end());
            }
        }
        return found;
    }

    std::set<Identifier> retainedTips() const {
        std::set<Identifier> tips(heads.begin(), heads.end());
        if (heads.empty()) {
            for (const auto& [identifier, commit] : commits) {
                tips.insert(identifier);
            }
        }
        const std::set<Identifier> candidates = tips;
        for (const Identifier& candidate : candidates) {
            for (const Identifier& continued : before(candidate)) {
                tips.erase(continued);
            }
        }
        return tips;
    }
};

/// Identifiers that differ early, late or hardly at all.
Identifier takeIdentifier(FuzzInput& input) {
    Identifier identifier;
    const std::uint8_t byte = input.takeByte();
    identifier.bytes[(byte & 3) * 10U] = static_cast<std::uint8_t>(byte >> 2);
    return identifier;
}

Graph takeGraph(FuzzInput& input) {
    Graph graph;
    for (std::size_t count = input.takeIndex(33); count > 0; --count) {
        HistoryCommit commit;
        commit.identifier = takeIdentifier(input);
        commit.generation = input.takeByte();
        commit.createdAtMilliseconds = static_cast<std::int8_t>(input.takeByte());
        for (std::size_t parents = input.takeIndex(4); parents > 0; --parents) {
            commit.parents.push_back(takeIdentifier(input));
        }
        graph.commits.try_emplace(commit.identifier, commit);
    }
    std::set<Identifier> heads;
    while (!input.isAtEnd() && heads.size() < 8) {
        heads.insert(takeIdentifier(input));
    }
    graph.heads.assign(heads.begin(), heads.end());
    return graph;
}

std::optional<History> historyOf(const Graph& graph) {
    std::vector<HistoryCommit> commits;
    for (const auto& [identifier, commit] : graph.commits) {
        commits.push_back(commit);
    }
    try {
        return History(commits, graph.heads);
    } catch (const Failure& failure) {
        expect(failure.reason() == FailureReason::integrity, "a history is refused as damaged");
        return std::nullopt;
    }
}

void expectBranch(const Graph& graph, const History& history, std::size_t tip) {
    const Identifier& identifier = history.commits()[tip].identifier;
    const std::vector<std::size_t> branch = history.branchOf(tip);
    expect(!branch.empty() && branch.front() == tip, "a branch begins with its tip");
    expect(std::ranges::is_sorted(branch, std::greater()), "a branch runs from the latest to the first");
    std::set<Identifier> expected = graph.before(identifier);
    expected.insert(identifier);
    std::set<Identifier> found;
    for (const std::size_t index : branch) {
        found.insert(history.commits()[index].identifier);
    }
    expect(found == expected && found.size() == branch.size(), "a branch is the tip and all before it");
}

void expectCommits(const Graph& graph, const History& history) {
    const std::set<Identifier> tips = graph.retainedTips();
    std::set<std::string> codes;
    for (std::size_t index = 0; index < history.commits().size(); ++index) {
        const Identifier& identifier = history.commits()[index].identifier;
        expect(history.isRetainedTip(index) == tips.contains(identifier), "a tip is what no other one continues");
        expectBranch(graph, history, index);
        const std::string code = history.selectionCode(index);
        expect(code.size() >= 12 && identifier.hexadecimal().starts_with(code), "a code is the start of a name");
        expect(codes.insert(code).second && history.find(code) == index, "a code names one commit");
    }
}

void expectDisposition(const Graph& graph, const History& history) {
    const std::size_t tips = graph.retainedTips().size();
    switch (history.disposition()) {
    case BranchDisposition::noPublishedHead:
        expect(graph.heads.empty(), "without heads there is no other disposition");
        break;
    case BranchDisposition::unresolvedFork:
        expect(!graph.heads.empty() && tips > 1, "a fork has two tips");
        break;
    case BranchDisposition::singleBranch:
        expect(!graph.heads.empty() && tips == 1, "a branch has one tip");
        expect(history.branchOf(history.commits().size() - 1).size() == history.commits().size(),
               "every commit lies on the one line");
        break;
    case BranchDisposition::canonicalBranch:
        expect(!graph.heads.empty() && tips == 1, "a canonical branch has one tip");
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const Graph graph = takeGraph(input);
    const std::optional<History> history = historyOf(graph);
    expect(history.has_value() == graph.isSound(), "a history is read unless it contradicts itself");
    if (history) {
        expect(history->commits().size() == graph.commits.size(), "every commit is there");
        expect(history->publishedHeadCount() == graph.heads.size(), "every head is counted");
        expectCommits(graph, *history);
        expectDisposition(graph, *history);
    }
    return 0;
}

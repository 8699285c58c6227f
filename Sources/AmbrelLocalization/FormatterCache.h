#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

/// Formatters by the text that describes them, each made at its first use and then shared by all threads.
/// What is kept must be safe to use from several threads at once through its const functions, as ICU's are.
template<typename Formatter>
class FormatterCache {
public:
    /// The formatter under `description`, made by `make()` (a unique or shared pointer) where there is none yet.
    /// Null only where `make` gives null, which is not kept.
    template<typename Make>
    std::shared_ptr<const Formatter> formatter(std::string_view description, const Make& make) {
        {
            const std::shared_lock lock(mutex_);
            if (const auto found = formatters_.find(description); found != formatters_.end()) {
                return found->second;
            }
        }
        // Made outside the lock: a slow formatter must not hold up the threads that want another one.
        std::shared_ptr<const Formatter> made = make();
        if (!made) {
            return made;
        }
        const std::unique_lock lock(mutex_);
        if (formatters_.size() >= capacity) {
            formatters_.clear();
        }
        return formatters_.try_emplace(std::string(description), std::move(made)).first->second;
    }

private:
    // Far more than the languages that one program shows; it bounds what a caller with ever new ones can take.
    static constexpr std::size_t capacity = 128;

    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    std::shared_mutex mutex_;
    std::unordered_map<std::string, std::shared_ptr<const Formatter>, Hash, std::equal_to<>> formatters_;
};

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

/// A cache of formatters, each created at first use and shared by all threads. The const functions of a formatter must
/// be safe to call from several threads at once, as ICU's are.
template<typename Formatter>
class FormatterCache {
public:
    /// Returns the formatter for `description`, calling `make()` (which returns a unique or shared pointer) if there is
    /// none yet. Null only if `make` returns null, which is not cached.
    template<typename Make>
    std::shared_ptr<const Formatter> formatter(std::string_view description, const Make& make) {
        {
            const std::shared_lock lock(mutex_);
            if (const auto found = formatters_.find(description); found != formatters_.end()) {
                return found->second;
            }
        }
        // Created outside the lock: a slow formatter must not block threads that need another one.
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
    // Far more than the languages that one program shows; bounds the memory if callers keep asking for new ones.
    static constexpr std::size_t capacity = 128;

    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    std::shared_mutex mutex_;
    std::unordered_map<std::string, std::shared_ptr<const Formatter>, Hash, std::equal_to<>> formatters_;
};

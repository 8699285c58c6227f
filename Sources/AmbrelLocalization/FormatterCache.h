#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

/// A cache of formatters, each created at first use and shared by all threads. The const functions of a formatter must
/// be safe to call from several threads at once, as ICU's are.
template<typename Formatter>
class FormatterCache {
public:
    /// What identifies a formatter: its locale and its other parameters, in a fixed order.
    using Key = std::vector<std::string>;

    /// Returns the formatter for `key`, calling `make()` (which returns a unique or shared pointer) if there is none
    /// yet. Null only if `make` returns null, which is not cached.
    template<typename Make>
    std::shared_ptr<const Formatter> formatter(const Key& key, const Make& make) {
        {
            const std::lock_guard lock(mutex_);
            if (const auto found = formatters_.find(key); found != formatters_.end()) {
                return found->second;
            }
        }
        // Created outside the lock: a slow formatter must not block threads that need another one.
        std::shared_ptr<const Formatter> made = make();
        if (!made) {
            return made;
        }
        const std::lock_guard lock(mutex_);
        if (formatters_.size() >= capacity) {
            formatters_.clear();
        }
        return formatters_.try_emplace(key, std::move(made)).first->second;
    }

private:
    // Far more than the languages that one program shows; bounds the memory if callers keep asking for new ones.
    static constexpr std::size_t capacity = 128;

    std::mutex mutex_;
    std::map<Key, std::shared_ptr<const Formatter>> formatters_;
};

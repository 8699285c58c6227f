// Misuse of a secret, a session, a runner or a descriptor that the compiler must refuse. Beside each stands what it
// must accept, so that no refusal can come from something else. There is nothing to run: the file compiles, or it does
// not.

#include "AmbrelPlatform/UniqueDescriptor.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryCredentialSession.h"
#include "AmbrelRecoveryAppSupport/AmbrelRecoveryProcessRunner.h"
#include "AmbrelRecoveryAppSupport/SecretBytes.h"

#include <cstddef>
#include <filesystem>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

template<typename Value>
concept Printable = requires(std::ostream& stream, const Value& value) {
    stream << value;
};

static_assert(std::is_move_constructible_v<SecretBytes>);
static_assert(!std::is_copy_constructible_v<SecretBytes>);
static_assert(std::is_move_assignable_v<SecretBytes>);
static_assert(!std::is_copy_assignable_v<SecretBytes>);

static_assert(Printable<decltype(SecretBytes().size())>);
static_assert(!Printable<SecretBytes>);

static_assert(std::is_constructible_v<SecretBytes, std::size_t>);
static_assert(!std::is_convertible_v<std::size_t, SecretBytes>);
static_assert(std::is_same_v<decltype(SecretBytes::copyOf(std::span<const std::byte>())), SecretBytes>);
static_assert(!std::is_constructible_v<SecretBytes, std::string>);
static_assert(!std::is_constructible_v<std::string, const SecretBytes&>);
static_assert(!std::is_constructible_v<std::string_view, const SecretBytes&>);

static_assert(std::is_constructible_v<AmbrelRecoveryCredentialSession, AmbrelRecoveryAppFactor, SecretBytes>);
static_assert(!std::is_copy_constructible_v<AmbrelRecoveryCredentialSession>);
static_assert(!std::is_move_constructible_v<AmbrelRecoveryCredentialSession>);

static_assert(std::is_constructible_v<AmbrelRecoveryProcessRunner, std::filesystem::path>);
static_assert(!std::is_copy_constructible_v<AmbrelRecoveryProcessRunner>);

static_assert(std::is_move_constructible_v<UniqueDescriptor>);
static_assert(!std::is_copy_constructible_v<UniqueDescriptor>);
static_assert(std::is_constructible_v<UniqueDescriptor, int>);
static_assert(!std::is_convertible_v<int, UniqueDescriptor>);

} // namespace

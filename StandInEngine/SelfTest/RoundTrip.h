#pragma once

#include "Common/Bytes.h"
#include "Common/SecretBytes.h"
#include "Format/Factor.h"
#include "Package/Credential.h"
#include "SelfTest/TemporaryFolder.h"

#include <string>
#include <string_view>
#include <vector>

/// Creates a package from a few originals and runs the engine's commands on it. The steps must run in the declared
/// order. Each returns whether it succeeded, and throws Failure and Stopped.
class RoundTrip {
public:
    RoundTrip();

    bool makePackage();
    bool refuseWrongSecrets() const;
    bool inspect(Factor factor);
    bool exportSnapshot() const;
    bool detectDamage() const;

private:
    struct Original {
        std::string name;
        Bytes content;
    };

    Credential credential(Factor factor) const;
    std::string packagePath() const { return folder_.path() + "/Package.ambrel"; }
    std::string exportPath() const { return folder_.path() + "/Exported"; }
    std::string inspectionText(const Credential& credential) const;
    bool isExported(const Original& original) const;

    TemporaryFolder folder_;
    SecretBytes recoveryKey_;
    std::vector<Original> originals_;
    std::string payloadPath_;
    std::string selectionCode_;
};

#include "SelfTest/SelfTest.h"

#include "Common/Failure.h"
#include "Common/StopRequest.h"
#include "SelfTest/CryptographyCheck.h"
#include "SelfTest/RoundTrip.h"

#include <string>

namespace {

class Checks {
public:
    explicit Checks(const SelfTest::Print& print) : print_(print) {}

    void check(std::string_view name, const std::function<bool()>& passes) {
        StopRequest::throwIfRequested();
        std::string line;
        try {
            line = passes() ? "passed: " : "FAILED: ";
            hasFailed_ = hasFailed_ || line.starts_with('F');
            line += name;
        } catch (const Failure& failure) {
            hasFailed_ = true;
            line = "FAILED: " + std::string(name) + " (" + failure.what() + ")";
        }
        print_(line + "\n");
    }

    bool hasFailed() const { return hasFailed_; }

private:
    const SelfTest::Print& print_;
    bool hasFailed_ = false;
};

void checkRoundTrip(Checks& checks) {
    RoundTrip roundTrip;
    checks.check("a package is made", [&] { return roundTrip.makePackage(); });
    checks.check("wrong secrets are refused", [&] { return roundTrip.refuseWrongSecrets(); });
    checks.check("the recovery key opens the package", [&] { return roundTrip.inspect(Factor::recoveryKey); });
    checks.check("the passphrase opens the package", [&] { return roundTrip.inspect(Factor::backupPassphrase); });
    checks.check("the exported files are the originals", [&] { return roundTrip.exportSnapshot(); });
    checks.check("a damaged payload file is found", [&] { return roundTrip.detectDamage(); });
}

} // namespace

bool SelfTest::run(const Print& print) {
    StopRequest::record();
    Checks checks(print);
    print("This is the stand-in engine. It stands in for the product's recovery engine and cannot read its backups.\n");
    checks.check("Argon2id test vectors", CryptographyCheck::argon2id);
    checks.check("XChaCha20-Poly1305 test vector", CryptographyCheck::xchacha20Poly1305);
    checks.check("BLAKE2b test vectors", CryptographyCheck::blake2b);
    try {
        checkRoundTrip(checks);
    } catch (const Failure&) {
        checks.check("a temporary folder is made", []() -> bool { throw; });
    }
    return !checks.hasFailed();
}

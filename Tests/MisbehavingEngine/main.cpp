#include "Engine.h"
#include "Misbehavior.h"
#include "Text.h"

#include <string>

#include <unistd.h>

namespace {

std::vector<Misbehavior> allMisbehaviors() {
    std::vector<Misbehavior> all;
    for (const auto& some :
         {reportingMisbehaviors(), inputMisbehaviors(), outputMisbehaviors(), endingMisbehaviors(), cannedReplies()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

void list(int descriptor) {
    for (const Misbehavior& misbehavior : allMisbehaviors()) {
        writeAll(descriptor, std::string(misbehavior.name) + ": " + std::string(misbehavior.description) + "\n");
    }
}

} // namespace

int main(int argumentCount, char** arguments) {
    Engine engine(argumentCount, arguments);
    if (engine.misbehavior() == "list") {
        list(STDOUT_FILENO);
        return 0;
    }
    for (const Misbehavior& misbehavior : allMisbehaviors()) {
        if (misbehavior.name == engine.misbehavior()) {
            if (misbehavior.input == Misbehavior::Input::readFirst) {
                engine.readInput();
            }
            const int status = misbehavior.run(engine);
            engine.waitForGate();
            engine.log("finished " + std::to_string(status));
            return status;
        }
    }
    writeAll(STDERR_FILENO, "no such misbehavior; there are:\n");
    list(STDERR_FILENO);
    return Engine::usageError;
}

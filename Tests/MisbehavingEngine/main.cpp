#include "Engine.h"
#include "Misbehaviour.h"
#include "Text.h"

#include <string>

#include <unistd.h>

namespace {

std::vector<Misbehaviour> allMisbehaviours() {
    std::vector<Misbehaviour> all;
    for (const auto& some : {reportingMisbehaviours(), inputMisbehaviours(), outputMisbehaviours(),
                             endingMisbehaviours(), cannedReplies()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

void list(int descriptor) {
    for (const Misbehaviour& misbehaviour : allMisbehaviours()) {
        writeAll(descriptor, std::string(misbehaviour.name) + ": " + std::string(misbehaviour.description) + "\n");
    }
}

} // namespace

int main(int argumentCount, char** arguments) {
    Engine engine(argumentCount, arguments);
    if (engine.misbehaviour() == "list") {
        list(STDOUT_FILENO);
        return 0;
    }
    for (const Misbehaviour& misbehaviour : allMisbehaviours()) {
        if (misbehaviour.name == engine.misbehaviour()) {
            if (misbehaviour.input == Misbehaviour::Input::readFirst) {
                engine.readInput();
            }
            const int status = misbehaviour.run(engine);
            engine.waitForGate();
            engine.log("finished " + std::to_string(status));
            return status;
        }
    }
    writeAll(STDERR_FILENO, "no such misbehaviour; there are:\n");
    list(STDERR_FILENO);
    return Engine::usageError;
}

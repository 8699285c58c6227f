#include "Program.h"

#include "Common/Bytes.h"
#include "Common/DescriptorIO.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <limits>
#include <system_error>

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

void require(bool succeeded, const char* what) {
    if (!succeeded) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

std::string readToEnd(int descriptor) {
    std::string text;
    std::array<std::uint8_t, 65'536> buffer{};
    while (const std::size_t count = DescriptorIO::readFully(descriptor, buffer).value_or(0)) {
        text.append(reinterpret_cast<const char*>(buffer.data()), count);
    }
    return text;
}

std::size_t fill(int pipe) {
    const std::array<char, 4096> nothing{};
    std::size_t count = 0;
    require(::fcntl(pipe, F_SETFL, O_NONBLOCK) == 0, "fcntl");
    for (ssize_t written = 0; (written = ::write(pipe, nothing.data(), nothing.size())) > 0;) {
        count += static_cast<std::size_t>(written);
    }
    require(::fcntl(pipe, F_SETFL, 0) == 0, "fcntl");
    return count;
}

} // namespace

Program::Program(const std::string& path, const std::vector<std::string>& arguments, const Setup& setup)
    : error_(::memfd_create("standard error", MFD_CLOEXEC)) {
    prepareOutput(setup.hasBlockedOutput);
    std::array<int, 2> ends{};
    require(::pipe2(ends.data(), O_CLOEXEC) == 0, "pipe2");
    UniqueDescriptor inputReadEnd(ends[0]);
    input_ = UniqueDescriptor(ends[1]);
    start(path, arguments, setup, inputReadEnd.get());
    inputReadEnd = UniqueDescriptor();
    outputWriteEnd_ = UniqueDescriptor();
    static_cast<void>(DescriptorIO::writeFully(input_.get(), bytesOf(setup.input)));
    if (!setup.keepsInputOpen) {
        input_ = UniqueDescriptor();
    }
}

Program::~Program() {
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
    }
}

ProgramResult Program::run(const std::string& path, const std::vector<std::string>& arguments, const Setup& setup) {
    return Program(path, arguments, setup).wait();
}

void Program::kill(int signal) const {
    require(::kill(pid_, signal) == 0, "kill");
}

ProgramResult Program::wait() {
    ProgramResult result;
    if (fillByteCount_ > 0) {
        result.output = readToEnd(output_.get()).substr(fillByteCount_);
    }
    input_ = UniqueDescriptor();
    int status = 0;
    rusage usage = {};
    require(::wait4(pid_, &status, 0, &usage) == pid_, "wait4");
    pid_ = -1;
    if (fillByteCount_ == 0) {
        require(::lseek(output_.get(), 0, SEEK_SET) == 0, "lseek");
        result.output = readToEnd(output_.get());
    }
    require(::lseek(error_.get(), 0, SEEK_SET) == 0, "lseek");
    result.error = readToEnd(error_.get());
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    result.maximumResidentKibibytes = usage.ru_maxrss;
    return result;
}

void Program::prepareOutput(bool isBlocked) {
    if (!isBlocked) {
        output_ = UniqueDescriptor(::memfd_create("standard output", MFD_CLOEXEC));
        outputWriteEnd_ = UniqueDescriptor(::fcntl(output_.get(), F_DUPFD_CLOEXEC, 0));
        return;
    }
    std::array<int, 2> ends{};
    require(::pipe2(ends.data(), O_CLOEXEC) == 0, "pipe2");
    output_ = UniqueDescriptor(ends[0]);
    outputWriteEnd_ = UniqueDescriptor(ends[1]);
    fillByteCount_ = fill(outputWriteEnd_.get());
}

// The file is opened before the child changes its user, who may have no way to its folder.
void Program::start(const std::string& path, const std::vector<std::string>& arguments, const Setup& setup,
                    int inputReadEnd) {
    const UniqueDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    require(static_cast<bool>(file), path.c_str());
    std::vector<char*> pointers = {const_cast<char*>(path.c_str())};
    for (const std::string& argument : arguments) {
        pointers.push_back(const_cast<char*>(argument.c_str()));
    }
    pointers.push_back(nullptr);
    pid_ = ::fork();
    require(pid_ >= 0, "fork");
    if (pid_ > 0) {
        return;
    }
    ::dup2(inputReadEnd, STDIN_FILENO);
    ::dup2(outputWriteEnd_.get(), STDOUT_FILENO);
    ::dup2(error_.get(), STDERR_FILENO);
    // Whoever started the tests may have left descriptors open.
    ::close_range(STDERR_FILENO + 1, std::numeric_limits<unsigned>::max(), CLOSE_RANGE_CLOEXEC);
    std::signal(SIGPIPE, SIG_DFL);
    setup.inChild();
    ::fexecve(file.get(), pointers.data(), environ);
    ::_exit(127);
}

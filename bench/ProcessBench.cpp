// Measures whole processes in turn: each round runs every command once, onto outputs that do not
// exist, so that all commands meet the same noise.
//
// Reads a plan from standard input, one command a line, fields separated by tabs:
//     NAME  OUTPUT  SYNC  PROGRAM  ARGUMENT...
// OUTPUT becomes the command's standard output, "-" discards it. SYNC is a file that is written to
// the disk inside the measured time, for commands that do not do so themselves, or "-".
// Lines that begin with "remove<TAB>" name files that are removed before each run.
// Prints one line for each command: NAME, median and minimum in milliseconds, peak memory in KiB.
//
// It is free of Qt because a child's peak memory begins with that of its parent.
//
// Usage: process-bench ROUNDS < PLAN

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Command {
    std::string name;
    std::string output;
    std::string synced;
    std::vector<std::string> arguments;
    std::vector<double> milliseconds;
    long peakKib = 0;
};

[[noreturn]] void fail(const std::string& what)
{
    std::fprintf(stderr, "process-bench: %s\n", what.c_str());
    std::exit(1);
}

std::vector<std::string> fieldsOf(const std::string& line)
{
    std::vector<std::string> fields;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, '\t');)
        fields.push_back(field);
    return fields;
}

Command commandOf(const std::vector<std::string>& fields)
{
    constexpr std::size_t FirstArgument = 3;
    if (fields.size() <= FirstArgument)
        fail("a command needs a name, an output, a sync mode and a program");
    Command command;
    command.name = fields[0];
    command.output = fields[1] == "-" ? "/dev/null" : fields[1];
    command.synced = fields[2] == "-" ? "" : fields[2];
    command.arguments.assign(fields.begin() + FirstArgument, fields.end());
    return command;
}

pid_t start(const Command& command)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, command.output.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0644);
    std::vector<char*> arguments;
    for (const std::string& argument : command.arguments)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    const int error =
        posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        fail("cannot start " + command.arguments[0]);
    return process;
}

void syncFile(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY);
    if (file < 0 || ::fsync(file) != 0)
        fail("cannot sync " + path);
    ::close(file);
}

void run(Command* command)
{
    const auto begin = std::chrono::steady_clock::now();
    const pid_t process = start(*command);
    int status = 0;
    rusage usage{};
    if (::wait4(process, &status, 0, &usage) != process || !WIFEXITED(status) ||
        WEXITSTATUS(status) != 0)
        fail(command->name + " failed");
    if (!command->synced.empty())
        syncFile(command->synced);
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - begin;
    command->milliseconds.push_back(taken.count());
    command->peakKib = std::max(command->peakKib, usage.ru_maxrss);
}

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc == 2 ? std::atoi(argv[1]) : 0;
    if (rounds < 1)
        fail("usage: process-bench ROUNDS < PLAN");

    std::vector<Command> commands;
    std::vector<std::string> removed;
    for (std::string line; std::getline(std::cin, line);) {
        const std::vector<std::string> fields = fieldsOf(line);
        if (fields.size() > 1 && fields[0] == "remove")
            removed.insert(removed.end(), fields.begin() + 1, fields.end());
        else
            commands.push_back(commandOf(fields));
    }
    // The first round warms caches up and is not counted.
    for (int round = 0; round <= rounds; ++round) {
        for (Command& command : commands) {
            for (const std::string& path : removed)
                ::unlink(path.c_str());
            run(&command);
            if (round == 0)
                command.milliseconds.clear();
        }
    }
    for (Command& command : commands) {
        std::vector<double>& times = command.milliseconds;
        std::sort(times.begin(), times.end());
        std::printf("%s\t%.3f\t%.3f\t%ld\n", command.name.c_str(), times[times.size() / 2],
                    times.front(), command.peakKib);
    }
    return 0;
}

#pragma once

#include <cstdio>
#include <exception>
#include <sys/wait.h>
#include <unistd.h>

/// Runs something in a child process, which inherits no open database. Its result is the child's exit code, 0 to 255;
/// -1 for a child that did not come to its end.
template<class Action> int inChild(Action action)
{
    const pid_t child = ::fork();
    if (child == 0) {
        int result = 255;
        try {
            result = action();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "in the child: %s\n", error.what());
        }
        ::_exit(result);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return -1;
    return WEXITSTATUS(status);
}

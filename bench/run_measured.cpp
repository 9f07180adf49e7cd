// run-measured PROGRAM ARGUMENT...: runs a program and prints the processor seconds and the peak kilobytes that
// it took. A system counts the memory of a process from before it became another program; beginning from here
// that is next to nothing, beginning from an interpreter it is the interpreter's.

#include <cstdio>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    pid_t const child = fork();
    if (child == 0) {
        // Standard output is for the result.
        dup2(STDERR_FILENO, STDOUT_FILENO);
        execv(argv[1], argv + 1);
        std::perror(argv[1]);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child)
        return 1;
    double const seconds = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                           1e-6 * static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
    std::printf("%.6f %ld\n", seconds, usage.ru_maxrss);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

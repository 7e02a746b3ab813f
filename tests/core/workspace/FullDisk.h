// A disk that is full at a number of bytes, for as long as this lives: no file of this process can grow beyond it.
#pragma once

#include <csignal>
#include <sys/resource.h>

class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN); // a write beyond the limit fails, as it does on a full disk
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit full{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
};

#pragma once

#include <csignal>
#include <sys/resource.h>

namespace tallymere::presenter {

/// Lets no file of this process grow while it lives.
class FullDisk
{
public:
    FullDisk() : before_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &limit_);
        auto none = limit_;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_FSIZE, &none);
    }
    FullDisk(FullDisk const&) = delete;
    FullDisk& operator=(FullDisk const&) = delete;
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &limit_);
        std::signal(SIGXFSZ, before_);
    }

private:
    void (*before_)(int);
    rlimit limit_{};
};
}

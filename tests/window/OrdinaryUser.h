// While this lives, permissions of files count, whoever runs the test: root's privileges are laid down.
#pragma once

#include <QtGlobal>

#include <unistd.h>

class OrdinaryUser {
public:
    OrdinaryUser()
    {
        if (before == 0 && seteuid(65534) != 0)
            qFatal("cannot become another user");
    }
    ~OrdinaryUser()
    {
        if (before == 0 && seteuid(before) != 0)
            qFatal("cannot become root again");
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

private:
    uid_t before = geteuid();
};

// SPDX-License-Identifier: MIT
#include "tools/edit/DataWatch.h"

#include <unistd.h>

namespace edit
{

DataWatch::DataWatch() : inotify(-1) {}

DataWatch::~DataWatch()
{
    Stop();
}

bool DataWatch::Watch(const std::string&, const std::string&, std::string*)
{
    Stop();
    return true;
}

void DataWatch::Stop()
{
    if (inotify >= 0)
        close(inotify);
    inotify = -1;
}

std::vector<DataChange> DataWatch::Poll(double)
{
    return {};
}

} // namespace edit

// SPDX-License-Identifier: MIT
#include "tools/edit/ShowPool.h"

namespace edit
{

struct ShowPool::Work {
    Status status;
};

ShowPool::ShowPool() : work(std::make_unique<Work>()) {}

ShowPool::~ShowPool()
{
    Stop();
}

bool ShowPool::Start(const ShowSettings&, std::string, std::string*)
{
    return true;
}

void ShowPool::SetScript(const std::string&, uint64_t) {}

void ShowPool::DataChanged(const std::string&) {}

void ShowPool::Seek(int64_t frame)
{
    work->status.position = frame;
}

void ShowPool::PlayTo(int64_t frame)
{
    Seek(frame);
}

void ShowPool::Poll() {}

bool ShowPool::TakeFrame(ShownFrame*)
{
    return false;
}

std::vector<ShowEvent> ShowPool::TakeEvents()
{
    return {};
}

ShowPool::Status ShowPool::GetStatus() const
{
    return work->status;
}

void ShowPool::Stop() {}

} // namespace edit

// SPDX-License-Identifier: MIT
#include "tools/edit/ShowChannel.h"

#include <cerrno>
#include <cstring>
#include <vector>

#include <sys/socket.h>
#include <unistd.h>

namespace edit
{

static const int maxDescriptors = 2;

bool SendPacket(int socket, const void* structure, size_t size, const std::string& text,
                const int* descriptors, int descriptorCount)
{
    iovec pieces[2] = {
        {const_cast<void*>(structure), size},
        {const_cast<char*>(text.data()), std::min(text.size(), MaxChannelText)},
    };
    msghdr message = {};
    message.msg_iov = pieces;
    message.msg_iovlen = 2;
    alignas(cmsghdr) char control[CMSG_SPACE(maxDescriptors * sizeof(int))] = {};
    if (descriptorCount > 0) {
        const size_t bytes = size_t(descriptorCount) * sizeof(int);
        message.msg_control = control;
        message.msg_controllen = CMSG_SPACE(bytes);
        cmsghdr* const header = CMSG_FIRSTHDR(&message);
        header->cmsg_level = SOL_SOCKET;
        header->cmsg_type = SCM_RIGHTS;
        header->cmsg_len = CMSG_LEN(bytes);
        memcpy(CMSG_DATA(header), descriptors, bytes);
    }
    ssize_t sent;
    do {
        sent = sendmsg(socket, &message, MSG_DONTWAIT | MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    return sent >= 0;
}

static void TakeDescriptors(msghdr* message, int descriptors[2])
{
    for (cmsghdr* header = CMSG_FIRSTHDR(message); header; header = CMSG_NXTHDR(message, header)) {
        if (header->cmsg_level != SOL_SOCKET || header->cmsg_type != SCM_RIGHTS)
            continue;
        const size_t count = (header->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (size_t i = 0; i < count; i++) {
            int descriptor;
            memcpy(&descriptor, CMSG_DATA(header) + i * sizeof(int), sizeof descriptor);
            if (descriptors && i < size_t(maxDescriptors))
                descriptors[i] = descriptor;
            else
                close(descriptor);
        }
    }
}

PacketResult TakePacket(int socket, void* structure, size_t size, std::string* text, int descriptors[2])
{
    static std::vector<char> textBytes(MaxChannelText);
    iovec pieces[2] = {{structure, size}, {textBytes.data(), textBytes.size()}};
    msghdr message = {};
    message.msg_iov = pieces;
    message.msg_iovlen = 2;
    alignas(cmsghdr) char control[CMSG_SPACE(maxDescriptors * sizeof(int))];
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    if (descriptors)
        descriptors[0] = descriptors[1] = -1;
    ssize_t got;
    do {
        got = recvmsg(socket, &message, MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
    } while (got < 0 && errno == EINTR);
    if (got < 0)
        return errno == EAGAIN ? PacketNone : PacketClosed;
    TakeDescriptors(&message, descriptors);
    if (size_t(got) < size) // 0: the other side has closed; a packet is never shorter than its structure
        return PacketClosed;
    text->assign(textBytes.data(), size_t(got) - size);
    return PacketTaken;
}

} // namespace edit

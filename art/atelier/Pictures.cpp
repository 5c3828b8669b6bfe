// SPDX-License-Identifier: MIT
#include "art/atelier/Pictures.h"

namespace atelier
{

// One line for each file under pictures/.
Group FramePictures();
Group IconPictures();
Group FX_Scroller_IntroPictures();
Group Transition_FishPictures();
Group FX_CloudsPictures();
Group FX_CreditsPictures();
Group FS_ImagePictures();
Group FX_PathPictures();
Group FX_TowersPictures();
Group FX_FootprintPictures();
Group FX_FlashHandPictures();
Group FX_RopeThingPictures();
Group FX_VerticalScrollerPictures();
Group TemplatePictures();

// In the order of the night.
const std::vector<Group>& AllGroups()
{
    static const std::vector<Group> groups = {
        FramePictures(),
        IconPictures(),
        FX_Scroller_IntroPictures(),
        Transition_FishPictures(),
        FX_CloudsPictures(),
        FX_CreditsPictures(),
        FS_ImagePictures(),
        FX_PathPictures(),
        FX_TowersPictures(),
        FX_FootprintPictures(),
        FX_FlashHandPictures(),
        FX_RopeThingPictures(),
        FX_VerticalScrollerPictures(),
        TemplatePictures(),
    };
    return groups;
}

std::string NameOf(const Picture& picture)
{
    const std::string path = picture.file;
    return path.substr(path.rfind('/') + 1);
}

const Picture* FindPicture(const std::string& name)
{
    for (const Group& group : AllGroups())
        for (const Picture& picture : group.pictures)
            if (picture.file == name || NameOf(picture) == name)
                return &picture;
    return nullptr;
}

} // namespace atelier

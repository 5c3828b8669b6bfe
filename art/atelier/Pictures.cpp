// SPDX-License-Identifier: MIT
#include "art/atelier/Pictures.h"

namespace atelier
{

// One line for each file under pictures/.
PictureGroup FramePictures();
PictureGroup IconPictures();
PictureGroup FX_Scroller_IntroPictures();
PictureGroup Transition_FishPictures();
PictureGroup FX_CloudsPictures();
PictureGroup FX_CreditsPictures();
PictureGroup FS_ImagePictures();
PictureGroup FX_PathPictures();
PictureGroup FX_TowersPictures();
PictureGroup FX_FootprintPictures();
PictureGroup FX_FlashHandPictures();
PictureGroup FX_RopeThingPictures();
PictureGroup FX_VerticalScrollerPictures();
PictureGroup TemplatePictures();

// In the order of the night.
const std::vector<PictureGroup>& AllGroups()
{
    static const std::vector<PictureGroup> groups = {
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
    for (const PictureGroup& group : AllGroups())
        for (const Picture& picture : group.pictures)
            if (picture.file == name || NameOf(picture) == name)
                return &picture;
    return nullptr;
}

} // namespace atelier

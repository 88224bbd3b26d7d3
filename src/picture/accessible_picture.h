#pragma once

class AnimatedPicture;

/// Makes AnimatedPicture tell assistive programs what it is (an animation, or a graphic), whether
/// it plays, and that it can be pressed where it can.
void MakeAccessible();

/// Tells them that it began or ceased to play.
void TellPlaying(AnimatedPicture& picture);

#pragma once

/// The chapter on authoring that the judge's page ends with.

#include <string_view>

namespace workshop {

inline constexpr std::string_view kAuthoringChapter = R"(
## How to author a motion

A script is text: pairs of a word and a number, in radians, in blocks. An *action script* plays one
block (`... move 0.04`) every second cycle of 0.02 s; a *pose script* is one block (`... MOVE 0.5`)
that lasts the time it names. In both, every pitch joint has the opposite sign of the sensor that
reports it. The scripts in `scripts/` are written by `pitchmotion generate` from the parameters in
`workshop/parameters/`: change those, not the scripts.

1. Change the parameters, or write a script by hand into a folder of your own.
2. `pitchmotion check FILE...` says what the player would silently skip: unknown words, a missing end
   of a block, numbers without a word, angles and speeds that no motor reaches.
3. `pitchmotion play turnL15 --scripts DIR --svg turn.svg` plays it once and draws it; `--seed 7`
   plays it in a perturbed world.
4. `pitchmotion judge --scripts DIR --only turnL15` holds it against its bars.
5. `pitchmotion tune turnL15` searches for better parameters, in worlds that the judge doesn't use.
6. `pitchmotion judge --report docs/motions.md` writes this page anew.

What the player's controller makes of a script:

- A block doesn't reach its targets: a joint at angle *c* with the target *T* moves by 7.5 % of the
  way in the block's first cycle and is 21.9 % of the way along after its second. To pass through
  the angles q[0], q[1], ... at the blocks' ends, aim beyond them: T[k] = q[k] + (q[k+1] - q[k]) /
  0.219. Targets may lie out of a joint's range; angles may not. A motor's 7 rad/s allow 0.21 rad a
  block.
- A joint that a block doesn't name stands still in it: name all 14.
- Between two scripts of a walk every joint stands still for two cycles. After any loop the walk may
  end, by `walkend` or, as a rule, by the initial pose at once: all of them end in the same phase.
- An action that begins with the initial pose has 29 cycles for it before its first block.
- Pose scripts arrive exactly, in equal slices, unless their names begin with b or f, whose gains are
  firmer. Most durations lose a cycle: 0.5 s plays 24 cycles.
- The get-up sequences go by the clock alone; what a pose doesn't name stays as it was.
- The player shoots when it believes the ball nearer than 0.12 m to its head: the initial pose leans
  forward, or no shot ever comes.
)";

}  // namespace workshop

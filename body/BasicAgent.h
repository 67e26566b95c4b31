#pragma once

/// The player below the level of behaviour: its body, its sensors, its motions. Agent derives from
/// it and adds the decisions; exactly one object holds both. All members are public and the layers
/// reach them directly. Each group of operations has a source file of its own.
///
/// | members                                   | written by                               |
/// |-------------------------------------------|------------------------------------------|
/// | joints[].angle, gyro*, accel, *Foot*      | the sensor decoders, each message        |
/// | uNum                                      | the command line, then the server        |
/// | jointFlags[].active, targetAngle          | setters, get-up; move clears active      |
/// | jointFlags[].speed .. errorSum            | move; reset by initMove and get-up       |
/// | Kp, Ki, Kd                                | whoever started the last motion          |
/// | moveCyclesLeft, lastMoveCycle             | initMove, get-up, move                   |
/// | lastLoadTime                              | the pose reader                          |
/// | actionFileOpen, actionName                | doActionFile4; the reader closes         |
/// | myPos, myDegree                           | localisation, each cycle                 |
/// | bodyState                                 | fall test, get-up, restoreState, cycle 10|
/// | getUpStartTime, getUpStepPending          | get-up, kicks, restoreState (flags)      |
/// | slowFunction                              | the kicks, restoreState                  |
/// | headState                                 | turnToPos                                |
/// | jumpTime                                  | the dives                                |
/// | beamX, beamY, beamAngle                   | sendBeamInfo, setStartPos                |
/// | keepRunning                               | the signal handler                       |

#include <array>
#include <fstream>
#include <memory>
#include <string>

#include "body/HingJoint.h"
#include "body/JointTables.h"
#include "body/JointsFlag.h"
#include "localisation/ParticleFiltering.h"
#include "math/VecPosition.h"
#include "perception/VisionInfo.h"

class BasicAgent {
 public:
  std::string commands;  ///< text waiting to be sent; empty between messages
  std::array<jointsFlag, kJointCount> jointFlags;
  /// The links as the constructor fills them, and what `parent` points to. `joints` are copies.
  HingJoint Neck, Head, Lshoulder, Rshoulder, LUpperArm, RUpperArm, LElbow, RElbow, LLowerArm,
      RLowerArm, LHip1, RHip1, LHip2, RHip2, LThigh, RThigh, LShank, RShank, LAnkle, RAnkle, LFoot,
      RFoot;
  Particle_filtering particleFilter;
  std::unique_ptr<Particle_filtering[]> particleFilters;  ///< 12; the one at uNum - 1 is used
  std::ifstream myACtionFile;  ///< the action script in playback, read block by block
  std::ifstream moveFile;      ///< a pose script, open only while it is read
  std::ifstream spareFile;     ///< never opened
  int actionFileStartTime;     ///< cycle at which myACtionFile was opened
  bool actionFileOpen;         ///< myACtionFile is being played
  double Kp, Ki, Kd;           ///< gains of the joint controller
  bool keepRunning;            ///< the run loop's condition; cleared by the signal handler
  VecPosition myPos;           ///< [m] own place, field frame
  VecPosition gyroRate;        ///< [deg/s] torso, as sent
  std::string gyroName;
  std::array<HingJoint, kJointCount> joints;  ///< the live joints
  HingJoint Torso;                            ///< the root
  // [m] in the foot's frame and [N]; -1000 where an element lacked its group.
  VecPosition leftFootForceCentre, leftFootForce, rightFootForceCentre, rightFootForce;
  VecPosition accel;            ///< [m/s^2] torso frame; standing still: (0, 0, 9.81)
  int uNum = 0;                 ///< shirt number
  int moveCyclesLeft = 0;       ///< cycles left in the motion step
  int lastMoveCycle = 0;        ///< cycle of the last playback message
  int bodyState = 0;            ///< 0 upright, lying 1 on the back, 2 front, 3 right, 4 left
  double myDegree = 0;          ///< [deg] own heading, 0 to below 360
  int headState = 0;            ///< an action's number; two of them hold the head's scan
  int lastLoadTime = 0;         ///< cycle of the last pose script
  double beamX = 0, beamY = 0;  ///< [m] start position
  double beamAngle = 0;         ///< [deg] written, never read
  std::string actionName;       ///< action whose script is in myACtionFile
  int jumpTime = 0;             ///< cycle of the last dive
  int slowFunction = 0;         ///< a kick in progress: 1 right, 2 left
  int getUpStartTime = 0;       ///< cycle at which a get-up or a kick began
  std::array<bool, 10> getUpStepPending{};  ///< stages yet to run; [9]: restart the clock

  BasicAgent();
  ~BasicAgent() = default;
  BasicAgent(const BasicAgent&) = delete;
  BasicAgent& operator=(const BasicAgent&) = delete;

  // --- JointCommands.cpp: targets, and the one door for messages
  // The setters take radians in the scripts' sign convention, in which every pitch joint is the
  // negative of the server's. They neither send nor start anything.
  void HeadYawCommand(long double angle);
  void HeadPitchCommand(long double angle);
  void RShoulderPitchCommand(long double angle);
  void RShoulderRollCommand(long double angle);
  void RElbowYawCommand(long double angle);
  void RElbowRollCommand(long double angle);
  void LShoulderPitchCommand(long double angle);
  void LShoulderRollCommand(long double angle);
  void LElbowYawCommand(long double angle);
  void LElbowRollCommand(long double angle);
  void RHipYawPitchCommand(long double angle);
  void RHipRollCommand(long double angle);
  void RHipPitchCommand(long double angle);
  void RKneePitchCommand(long double angle);
  void RAnklePitchCommand(long double angle);
  void RAnkleRollCommand(long double angle);
  void LHipYawPitchCommand(long double angle);
  void LHipRollCommand(long double angle);
  void LHipPitchCommand(long double angle);
  void LKneePitchCommand(long double angle);
  void LAnklePitchCommand(long double angle);
  void LAnkleRollCommand(long double angle);
  /// Zero targets for all but the head and the shoulder rolls, with the slow motions' gains.
  void zeroJoints();
  /// Starts a motion step. Most durations come out a cycle short: the quotient is cut, not rounded.
  void initMove(double seconds);
  /// Null for an unknown name.
  HingJoint* findJoint(std::string perceptorName);
  /// Sends one message: a zero speed for every joint but the head's yaw, then the waiting commands
  /// and TEXT. So what nothing mentions stops in this very cycle.
  void sendCommand(std::string text);
  [[nodiscard]] std::string getCommands() const;
  /// "(say TEXT)", at once.
  void sendSay(std::string text);

  // --- CentreOfMass.cpp
  /// [kg m] the mass-weighted sum of the links' places, which is not divided by the total mass;
  /// of each link's place only the offset from its parent counts.
  VecPosition computeCOM();
  void updateTorsoPos();

  // --- MotionScripts.cpp
  /// Reads the next block of the open action script and starts its step.
  void loadMoveFromFile();
  /// Reads one pose script and starts its step at once. Always true.
  bool loadMoveFromFile(const char* fileName);

  // --- MotionPlayback.cpp
  /// One low-level cycle, once per server message.
  void basicAgentLoop();
  /// Sends this cycle's joint speeds.
  void move();

  // --- FallRecovery.cpp
  void checkBodyState();
  void Back();
  void Front();
  void Right2Back();
  void Left2Back();
  void JumpR();
  void JumpL();
  /// The dispatch of a fall's states by itself, as an offered operation.
  void GetUP();

  // --- HeadScan.cpp
  void headYawDasti();

  // --- localisation/FlagTriangulation.cpp
  /// The player's place from the landmarks of this cycle's sight. In spite of the name two flags
  /// decide; too few, or flags at both ends with three or more in all, leave the place alone.
  void LocalizeAgentWith3FlagsCircle();
  /// Crosses two circles round distinct sighted landmarks.
  void LocalizeAgentWith2Flags(PolarInfo* a, PolarInfo* b);
  /// An offered variant with three flags.
  void LocalizeAgentWith3Flags();

  // --- localisation/Orientation.cpp
  /// The heading from the nearest landmark in view.
  void findOrientation();
  /// [deg] 0 to below 360, from one sighted landmark.
  double computeMyDegree(PolarInfo p);

  // --- localisation/ParticleGate.cpp
  /// Lets a measured place [m] (z = 0) through the gate of particles into myPos.
  void calculateMyPosWithParticleFiltering(VecPosition measured);

  // --- StartPositions.cpp
  void sendPlayerInfo();
  void sendBeamInfo();
  void setStartPos();
};

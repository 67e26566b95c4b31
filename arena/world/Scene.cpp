#include "arena/world/Scene.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <string>

namespace arena {
namespace {

struct FilesDeleter {
  void operator()(mjVFS* files) const {
    mj_deleteVFS(files);
    delete files;
  }
};

/// Left alone, the engine writes its warnings into a file where the process happens to run. The
/// one that comes up in play, a heap with more contacts than there is room for, needs no words; the
/// grave ones are counted in the state, and a World looks there.
void silenceWarnings() {
  [[maybe_unused]] static const bool once = [] {
    mju_user_warning = [](const char*) {};
    return true;
  }();
}

/// The engine reads models from files only; this one is in memory.
ModelPtr compile(const std::string& text) {
  constexpr const char* kFile = "pitch.xml";
  const std::unique_ptr<mjVFS, FilesDeleter> files(new mjVFS);
  mj_defaultVFS(files.get());
  if (mj_makeEmptyFileVFS(files.get(), kFile, static_cast<int>(text.size())) != 0) {
    throw std::runtime_error("world: no room for the model's text");
  }
  const int file = mj_findFileVFS(files.get(), kFile);
  std::copy(text.begin(), text.end(), static_cast<char*>(files->filedata[file]));
  std::array<char, 1000> error{};
  ModelPtr model(mj_loadXML(kFile, files.get(), error.data(), static_cast<int>(error.size())));
  if (!model) throw std::runtime_error(std::string("world: model refused: ") + error.data());
  return model;
}

int indexOf(const mjModel* model, mjtObj kind, const std::string& name) {
  const int index = mj_name2id(model, kind, name.c_str());
  if (index < 0) throw std::runtime_error("world: the model lacks " + name);
  return index;
}

RobotIndex resolveRobot(const mjModel* model, int robot) {
  const auto body = [&](std::string_view link) {
    return indexOf(model, mjOBJ_BODY, nameInModel(robot, link));
  };
  const auto geom = [&](std::string_view link) {
    return indexOf(model, mjOBJ_GEOM, nameInModel(robot, link));
  };
  RobotIndex index;
  const int root = indexOf(model, mjOBJ_JOINT, nameInModel(robot, kTorsoName));
  index.position = model->jnt_qposadr[root];
  index.velocity = model->jnt_dofadr[root];
  for (std::size_t j = 0; j < kJointCount; ++j) {
    const int joint = indexOf(model, mjOBJ_JOINT, nameInModel(robot, kJoints[j].link));
    index.jointPosition[j] = model->jnt_qposadr[joint];
    index.jointVelocity[j] = model->jnt_dofadr[joint];
  }
  index.torso = body(kTorsoName);
  index.head = body("Head");
  index.leftLowerArm = body("LLowerArm");
  index.rightLowerArm = body("RLowerArm");
  index.leftFoot = body("LFoot");
  index.rightFoot = body("RFoot");
  index.leftFootGeom = geom("LFoot");
  index.rightFootGeom = geom("RFoot");
  return index;
}

}  // namespace

Scene makeScene(int robots, const ModelSettings& settings) {
  silenceWarnings();
  Scene scene;
  scene.model = compile(mjcf(robots, settings));
  const mjModel* model = scene.model.get();
  const std::string ballName(kBallName);
  const int ballJoint = indexOf(model, mjOBJ_JOINT, ballName);
  scene.ball = {model->jnt_qposadr[ballJoint], model->jnt_dofadr[ballJoint],
                indexOf(model, mjOBJ_GEOM, ballName)};
  scene.robotOfGeom.assign(static_cast<std::size_t>(model->ngeom), -1);
  scene.dofOwner.assign(static_cast<std::size_t>(model->nv), DofOwner{});
  for (int r = 0; r < robots; ++r) {
    const RobotIndex& index = scene.robots.emplace_back(resolveRobot(model, r));
    for (std::size_t j = 0; j < kJointCount; ++j) {
      scene.dofOwner[static_cast<std::size_t>(index.jointVelocity[j])] = {r, static_cast<int>(j)};
    }
    for (int g = 0; g < model->ngeom; ++g) {
      const int root = model->body_rootid[model->geom_bodyid[g]];
      if (root == index.torso) scene.robotOfGeom[static_cast<std::size_t>(g)] = r;
    }
  }
  return scene;
}

DataPtr makeData(const Scene& scene) {
  DataPtr data(mj_makeData(scene.model.get()));
  if (!data) throw std::bad_alloc();
  return data;
}

}  // namespace arena

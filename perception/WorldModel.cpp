#include "perception/WorldModel.h"

WorldModel* WorldModel::m_Instance = nullptr;

WorldModel* WorldModel::getSingleton() {
  if (m_Instance == nullptr) {
    m_Instance = new WorldModel;
  }
  return m_Instance;
}

void WorldModel::freeSingleton() {
  delete m_Instance;
  m_Instance = nullptr;
}

void WorldModel::setBallPos() {
  double best = 10000000.0;
  const PolarInfo* nearest = nullptr;
  for (const PolarInfo& report : teamBall) {
    if (best > report.distance) {
      best = report.distance;
      nearest = &report;
    }
  }
  if (nearest != nullptr) {
    ballPos = VecPosition(nearest->position.x, nearest->position.y, 0.0);
  }
}

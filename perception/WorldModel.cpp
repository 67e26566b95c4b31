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

// What one automation DLL is: its classes, its type library, its count of what lives.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <span>
#include <string>

#include "com/server/automation_types.h"

namespace wendrill::com {

// What the interface definition says of a class; generated from it.
struct ClassIdentity {
  const CLSID& id;
  const wchar_t* programmaticId;  // also the name without version that scripts create it by
  const wchar_t* description;
};

// One creatable class.
struct ServerClass : ClassIdentity {
  // Makes an object with one reference. Failures leave rich error information, as every method's do.
  HRESULT (*create)(const IID& wanted, void** object);
};

// The words of regsvr32's /i:, see registration.h.
enum InstallWords : unsigned { kForUser = 1, kForMachine = 2, kSimulate = 4 };

// What a DLL is made of; defined once in each DLL, as kServer.
struct ServerDescription {
  const GUID& typeLibrary;
  std::span<const ServerClass> classes;
  // Runs when the last object of the DLL has gone, on the thread that released it. References to objects of other
  // servers end here and never in DllMain, where calling out is not allowed.
  void (*lastObjectGone)();
  // The words that this DLL takes besides user and machine, those without which it does not register, and the reason
  // that is given then.
  unsigned ownWords = 0;
  unsigned neededWords = 0;
  const char16_t* whyNeeded = u"";
};
extern const ServerDescription kServer;

// Every living object holds one; with the last one goes what all of them shared. The DLL can unload when there is none
// and no lock on the server.
class ObjectLock {
 public:
  ObjectLock();
  ~ObjectLock();
  ObjectLock(const ObjectLock&) = delete;
  ObjectLock& operator=(const ObjectLock&) = delete;
};

// Every living class factory holds one.
class FactoryLock {
 public:
  FactoryLock();
  ~FactoryLock();
  FactoryLock(const FactoryLock&) = delete;
  FactoryLock& operator=(const FactoryLock&) = delete;
};

// Locks of the factories' callers, counted together: what was locked through one factory is unlocked through any. A
// caller who unlocks what nobody locked has no effect.
void LockServer(bool lock);
bool CanUnload();

HINSTANCE ModuleInstance();
void SetModuleInstance(HINSTANCE instance);
std::wstring ModulePath();

// The description of an interface or a class from the type library inside the DLL. `id` stays where it is.
HRESULT TypeInformationOf(const GUID& id, ITypeInfo** information);

}  // namespace wendrill::com

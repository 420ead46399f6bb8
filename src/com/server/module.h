// The module of one automation DLL: its classes, its type library, its count of live objects.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <span>
#include <string>

#include "com/server/automation_types.h"

namespace wendrill::com {

// The identity of a class; generated from the interface definition.
struct ClassIdentity {
  const CLSID& id;
  const wchar_t* programmaticId;  // without a version; also the name with which scripts create the class
  const wchar_t* description;
};

// One creatable class.
struct ServerClass : ClassIdentity {
  // Creates an object with one reference, which the caller owns. A failure sets the thread's error information, as in
  // every method.
  HRESULT (*create)(const IID& wanted, void** object);
};

// The words after regsvr32's /i:. See registration.h.
enum InstallWords : unsigned { kForUser = 1, kForMachine = 2, kSimulate = 4, kSurrogate = 8 };

// The description of a DLL; each DLL defines one, named kServer.
struct ServerDescription {
  const GUID& typeLibrary;
  std::span<const ServerClass> classes;
  // Called when the last object of the DLL has been released, on the releasing thread. References to objects of other
  // servers are released here, because DllMain must not call other components.
  void (*lastObjectGone)();
  // The install words that this DLL accepts in addition to user and machine; the words that registering requires; and
  // the error message when a required word is missing.
  unsigned ownWords = 0;
  unsigned neededWords = 0;
  const char16_t* whyNeeded = u"";
  // The AppID with which the word surrogate registers the classes; null for a DLL that does not accept that word.
  const wchar_t* surrogate = nullptr;
  // Called in DllMain when the process ends; null for nothing. The loader lock is held and other threads are gone, so
  // no object of another component may be called.
  void (*processEnds)() = nullptr;
};
extern const ServerDescription kServer;

// Every live object contains an ObjectLock. The shared state is released with the last one. The DLL can unload when
// there is no ObjectLock and no lock on the server.
class ObjectLock {
 public:
  ObjectLock();
  ~ObjectLock();
  ObjectLock(const ObjectLock&) = delete;
  ObjectLock& operator=(const ObjectLock&) = delete;
};

// Every live class factory contains a FactoryLock.
class FactoryLock {
 public:
  FactoryLock();
  ~FactoryLock();
  FactoryLock(const FactoryLock&) = delete;
  FactoryLock& operator=(const FactoryLock&) = delete;
};

// IClassFactory::LockServer of all factories, counted together: a lock taken through one factory may be released
// through another. Unlocking without a lock has no effect.
void LockServer(bool lock);
bool CanUnload();

HINSTANCE ModuleInstance();
void SetModuleInstance(HINSTANCE instance);
std::wstring ModulePath();

// The description of an interface or a class, from the type library inside the DLL. REQUIRES: `id` is a static object;
// descriptions are kept by its address.
HRESULT TypeInformationOf(const GUID& id, ITypeInfo** information);

}  // namespace wendrill::com

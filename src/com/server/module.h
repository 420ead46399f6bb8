// One automation DLL as a COM server: its classes, its type library, and the counts of live objects and locks that
// DllCanUnloadNow reads.
#pragma once

#include <ole2.h>
#include <windows.h>

#include <span>
#include <string>

#include "com/server/automation_types.h"

namespace wendrill::com {

// The identity of a class. The values are generated from the interface definition.
struct ClassIdentity {
  const CLSID& id;
  const wchar_t* programmaticId;  // the ProgID, without a version, with which scripts create objects
  const wchar_t* description;
};

// One creatable class.
struct ServerClass : ClassIdentity {
  // Creates an object and stores its interface `wanted`, AddRef'ed for the caller, in `object`. An exception becomes a
  // failure with error information on the thread, as in every COM method.
  HRESULT (*create)(const IID& wanted, void** object);
};

// The install words, which follow /i: on the command line of regsvr32 (InstallServer), as bit flags. user and machine
// select the scope of the registration. simulate is required to register the simulator, because the simulator takes the
// names of the terminal's components. surrogate makes the classes available to 64-bit programs.
enum InstallWords : unsigned { kForUser = 1, kForMachine = 2, kSimulate = 4, kSurrogate = 8 };

// Describes one automation DLL. Each DLL defines one constant of this type, named kServer.
struct ServerDescription {
  const GUID& typeLibrary;
  std::span<const ServerClass> classes;
  // Called on the thread that releases the last object of the DLL; may be null. The function must release all
  // references to objects of other servers. Waiting for DllMain would be too late, because DllMain must not call other
  // components.
  void (*lastObjectGone)();
  // ownWords: the install words that this DLL accepts in addition to user and machine. neededWords: the install words
  // that registering requires; a DLL that does not accept such a word can never be registered. whyNeeded: the error
  // message when a required word is missing.
  unsigned ownWords = 0;
  unsigned neededWords = 0;
  const char16_t* whyNeeded = u"";
  // The AppID that the install word surrogate registers for the classes; null for a DLL that does not accept this word.
  const wchar_t* surrogate = nullptr;
  // Called by DllMain when the process ends; null for a DLL that has nothing to do at that time. The loader lock is
  // held and all other threads have ended, so this function must not call objects of other components.
  void (*processEnds)() = nullptr;
};
extern const ServerDescription kServer;

// The lock that each live object holds on the DLL, as a data member. While an ObjectLock exists, DllCanUnloadNow
// returns S_FALSE. The destructor of the last ObjectLock releases the shared state (lastObjectGone).
class ObjectLock {
 public:
  ObjectLock();
  ~ObjectLock();
  ObjectLock(const ObjectLock&) = delete;
  ObjectLock& operator=(const ObjectLock&) = delete;
};

// The lock that each live class factory holds on the DLL, as a data member. While a FactoryLock exists, DllCanUnloadNow
// returns S_FALSE.
class FactoryLock {
 public:
  FactoryLock();
  ~FactoryLock();
  FactoryLock(const FactoryLock&) = delete;
  FactoryLock& operator=(const FactoryLock&) = delete;
};

// Implements IClassFactory::LockServer. All factories share one count of locks: a lock taken through one factory may be
// released through another factory. Unlocking has no effect when the count is 0.
void LockServer(bool lock);

// Whether the DLL has no live object, no live class factory and no lock that LockServer took.
bool CanUnload();

HINSTANCE ModuleInstance();
void SetModuleInstance(HINSTANCE instance);
std::wstring ModulePath();

// Stores the type information of an interface or a class in `information`, AddRef'ed for the caller. The type
// information is read from the type library inside the DLL. REQUIRES: `id` is a static object, because type information
// is cached by the address of `id`.
HRESULT TypeInformationOf(const GUID& id, ITypeInfo** information);

}  // namespace wendrill::com

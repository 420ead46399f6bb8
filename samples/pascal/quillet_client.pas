{ What the samples of this folder share: creating the library's objects, bags, and errors with the numbers that the
  documentation names. Free Pascal and Delphi, for 32-bit Windows. }
unit quillet_client;

{$IFDEF FPC}{$MODE DELPHI}{$H+}{$ENDIF}

interface

uses
  SysUtils;

{ A new object. When it is refused, the exception has the library's number and message. }
function NewObject(const Name: string): OleVariant;

{ A new bag that asks for the element at a position, counted from 0. Each call gets its own: a member leaves there what
  an earlier call has put. }
function BagAt(Index: Integer): OleVariant;

{ The value under a key as text; empty when the member did not put one. Reading a missing key would add it. }
function TextOf(const Bag: OleVariant; const Key: string): string;

{ "Error 2505", in a PNR where one is named, with the message. }
procedure TellError(Error: Exception; const Place: string);

procedure Tell(const Line: string);

implementation

uses
  ActiveX, ComObj, Variants;

{ CreateOleObject would lose the message: it is left on the thread, and whoever takes it takes it away. }
procedure RaiseWithMessage(Status: HResult);
var
  Left: IErrorInfo;
  Source, Description: WideString;
begin
  if (GetErrorInfo(0, Left) = S_OK) and (Left <> nil) then
  begin
    Left.GetSource(Source);
    Left.GetDescription(Description);
    raise EOleException.Create(Description, Status, Source, '', 0);
  end;
  OleError(Status);
end;

function NewObject(const Name: string): OleVariant;
var
  Created: IDispatch;
  Status: HResult;
begin
  Status := CoCreateInstance(ProgIDToClassID(Name), nil, CLSCTX_INPROC_SERVER, IDispatch, Created);
  if Failed(Status) then
    RaiseWithMessage(Status);
  Result := Created;
end;

function BagAt(Index: Integer): OleVariant;
begin
  Result := NewObject('Scripting.Dictionary');
  Result.Add('intKeyIndex', Index);
end;

function TextOf(const Bag: OleVariant; const Key: string): string;
begin
  Result := '';
  if Bag.Exists(Key) then
    Result := string(Bag.Item(Key));
end;

{ The numbers of the library and of the run time travel as 0x800A0000 + number; any other status is the number itself. }
function NumberOf(Status: HResult): string;
begin
  if LongWord(Status) shr 16 = $800A then
    Result := IntToStr(Status and $FFFF)
  else
    Result := IntToStr(Status);
end;

procedure TellError(Error: Exception; const Place: string);
begin
  if Error is EOleSysError then
    Tell('Error ' + NumberOf(EOleSysError(Error).ErrorCode) + Place + ': ' + Error.Message)
  else
    Tell('Error' + Place + ': ' + Error.Message);
end;

procedure Tell(const Line: string);
begin
  WriteLn(ErrOutput, Line);
end;

end.

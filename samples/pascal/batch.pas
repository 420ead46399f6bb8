{ Entries that wait in a queue, sent as one batch; the host refuses one of them.

    fpc -Twin32 -Pi386 batch.pas     or Delphi, for 32-bit Windows
    batch.exe                        on a desktop with Quillet, the library registered

  A batch joins the entries with ";" and sends them in as few host entries as they need, at most 239 characters at a
  time. Its report numbers these host entries from 1 and says which of them the host refused. An error goes to standard
  error, and the status is 1. }
program batch;

{$IFDEF FPC}{$MODE DELPHI}{$H+}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  SysUtils, Variants, ComObj, quillet_client;

const
  NotQueued = HResult($800A0000 + 2400);  { whatever keeps an entry out of the queue }

{ A key that is there already, whatever its case, is an error. }
procedure AddOnce(const Queue: OleVariant; const Entry, Key: string);
begin
  try
    Queue.Add(Entry, Key);
  except
    on Error: EOleSysError do
    begin
      if Error.ErrorCode <> NotQueued then
        raise;
      WriteLn(Entry, ' is not queued: there is an entry under its key, ', string(Queue.Item(Key).Command));
    end;
  end;
end;

function FilledQueue: OleVariant;
begin
  Result := NewObject('Wendrill23.CQueue');
  Result.Add('RM PAID BY CARD AT THE DESK');
  Result.Add('RM WINDOW SEATS WANTED', 'seats');  { an entry may have a key }
  Result.Add('ER', 'end');
  Result.Add('RUBBISH');  { "RU" begins a host entry; the host does not understand this one }
  AddOnce(Result, 'ET', 'END');
end;

function FirstRow(const Response: string): string;
begin
  Result := TrimRight(Copy(Response, 1, 80));
end;

procedure SendBatch(const Queue: OleVariant);
var
  Batch, Report, Responses: OleVariant;
  Index: Integer;
begin
  for Index := 1 to Queue.Count do
    WriteLn('> ', string(Queue.Item(Index).Command));

  Batch := NewObject('Wendrill23.CBatch');
  Report := NewObject('Scripting.Dictionary');  { a bag, filled by the call }
  Batch.Commands := Queue;
  Batch.SubmitWithResponse(Report);

  Responses := Report.Item('strKeyResponseArray');
  for Index := 0 to VarArrayHighBound(Responses, 1) do
    WriteLn(Index + 1, ': ', FirstRow(string(Responses[Index])));
  if Report.Item('blnKeyResponseOK') then
    WriteLn('The host accepted everything.')
  else
    WriteLn('Refused: host entry ', string(Report.Item('strKeyErr')));
end;

begin
  try
    SendBatch(FilledQueue);
  except
    on Error: Exception do
    begin
      TellError(Error, '');
      ExitCode := 1;
    end;
  end;
end.

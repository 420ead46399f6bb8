{ Looks for a text in a response of several pages and stops at the page that has it: the pages after it are not fetched.

    fpc -Twin32 -Pi386 find_in_pages.pas     or Delphi, for 32-bit Windows
    find_in_pages.exe [TEXT [ENTRY]]         on a desktop with Quillet, the library registered

  Without arguments: a flight in an availability display of the simulator. The members that collect pages fetch all of
  them; here each page is an entry of its own, MD. An error goes to standard error, and the status is 1. }
program find_in_pages;

{$IFDEF FPC}{$MODE DELPHI}{$H+}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  SysUtils, Classes, Variants, ComObj, quillet_client;

{ Sends an entry, waits for the host's answer and cuts it into rows: it is one text of rows of the screen's width,
  without line breaks. }
procedure ReadPage(const Quillet: OleVariant; const Entry: string; Rows: TStrings);
var
  Text: string;
  Columns: Integer;
begin
  Text := string(Quillet.SendCommandNoClear(Entry));
  Columns := Quillet.LastNumberOfColumns;
  if Columns < 1 then
    Columns := 80;
  Rows.Clear;
  while Text <> '' do
  begin
    Rows.Add(Copy(Text, 1, Columns));
    Delete(Text, 1, Columns);
  end;
end;

{ The first row that holds the text, without the blanks around it; empty when there is none. }
function RowWith(Rows: TStrings; const Text: string): string;
var
  Index: Integer;
begin
  Result := '';
  for Index := 0 to Rows.Count - 1 do
    if Pos(Text, Rows[Index]) > 0 then
    begin
      Result := Trim(Rows[Index]);
      Exit;
    end;
end;

{ "1/ 3": whether the first number is below the second; False for any other text. }
function BelowLast(const Numbers: string): Boolean;
var
  Slash, Page, Last: Integer;
begin
  Slash := Pos('/', Numbers);
  Result := (Slash > 0) and TryStrToInt(Trim(Copy(Numbers, 1, Slash - 1)), Page) and
    TryStrToInt(Trim(Copy(Numbers, Slash + 1, MaxInt)), Last) and (Page < Last);
end;

{ Whether more pages follow: the last row with text begins with "MORE", or says ">   PAGE  1/ 3" or ")> 1/ 3". }
function GoesOn(Rows: TStrings): Boolean;
var
  Index: Integer;
  Last: string;
begin
  Last := '';
  for Index := 0 to Rows.Count - 1 do
    if Trim(Rows[Index]) <> '' then
      Last := Rows[Index];
  Result := (Copy(Last, 1, 4) = 'MORE') or ((Pos('>', Last) > 0) and
    BelowLast(StringReplace(Copy(Last, Pos('>', Last) + 1, MaxInt), 'PAGE', '', [])));
end;

procedure Find(const Text, Entry: string);
var
  Quillet: OleVariant;
  Rows: TStringList;
  Number: Integer;
  Row: string;
begin
  Quillet := NewObject('Wendrill23.CQuillet');  { connects to the running session }
  Rows := TStringList.Create;
  try
    WriteLn('> ', Entry);
    ReadPage(Quillet, Entry, Rows);
    Number := 1;
    Row := RowWith(Rows, Text);
    while (Row = '') and GoesOn(Rows) do
    begin
      WriteLn('Page ', Number, ': not there');
      ReadPage(Quillet, 'MD', Rows);
      Inc(Number);
      Row := RowWith(Rows, Text);
    end;
    if Row = '' then
      WriteLn('Page ', Number, ': not there, and this is the last one')
    else if GoesOn(Rows) then
    begin
      WriteLn('Page ', Number, ': ', Row);
      WriteLn('The pages after it were not fetched.');
    end
    else
      WriteLn('Page ', Number, ', the last one: ', Row);
  finally
    Rows.Free;
  end;
end;

function Argument(Position: Integer; const Default: string): string;
begin
  Result := Default;
  if Position <= ParamCount then
    Result := ParamStr(Position);
end;

begin
  try
    Find(Argument(1, 'AF 123'), Argument(2, 'AN20JUNNCEPAR'));
  except
    on Error: Exception do
    begin
      TellError(Error, '');
      ExitCode := 1;
    end;
  end;
end.

{ A list of record locators becomes one CSV: the names, flights, tickets and special services of each PNR.

    fpc -Twin32 -Pi386 queue_to_csv.pas               or Delphi, for 32-bit Windows
    queue_to_csv.exe ABC123 locators.txt >pnrs.csv    on a desktop with Quillet, the library registered

  An argument that is the name of a file means the locators in it, one a line. The CSV (RFC 4180) goes to standard
  output, everything else to standard error. A PNR that is not found is skipped; the status is 1 when an error ends the
  list, 2 without locators. }
program queue_to_csv;

{$IFDEF FPC}{$MODE DELPHI}{$H+}{$ENDIF}
{$APPTYPE CONSOLE}

uses
  SysUtils, Classes, Variants, ComObj, quillet_client;

var
  Locators: TStringList;
  Current: string;  { the locator that an error belongs to }

procedure ReadLocators;
var
  Lines: TStringList;
  Argument, Line: Integer;
begin
  Lines := TStringList.Create;
  try
    for Argument := 1 to ParamCount do
    begin
      if FileExists(ParamStr(Argument)) then
        Lines.LoadFromFile(ParamStr(Argument))
      else
        Lines.Text := ParamStr(Argument);
      for Line := 0 to Lines.Count - 1 do
        if Trim(Lines[Line]) <> '' then
          Locators.Add(Trim(Lines[Line]));
    end;
  finally
    Lines.Free;
  end;
end;

{ A value with a comma, a quotation mark or a line break is quoted, its own marks doubled. }
function Quoted(const Text: string): string;
begin
  Result := Text;
  if LastDelimiter(',"'#13#10, Text) > 0 then
    Result := '"' + StringReplace(Text, '"', '""', [rfReplaceAll]) + '"';
end;

function CsvRow(const Values: array of string): string;
var
  Index: Integer;
begin
  Result := Quoted(Values[0]);
  for Index := 1 to High(Values) do
    Result := Result + ',' + Quoted(Values[Index]);
end;

{ The values that are not empty, with blanks between them. }
function Joined(const Values: array of string): string;
var
  Index: Integer;
begin
  Result := '';
  for Index := 0 to High(Values) do
    if Values[Index] <> '' then
      Result := Trim(Result + ' ' + Values[Index]);
end;

function Also(const Name, Value: string): string;
begin
  Result := '';
  if Value <> '' then
    Result := Name + ' ' + Value;
end;

function Belonging(const Bag: OleVariant): string;
begin
  Result := Joined([Also('segment', TextOf(Bag, 'strKeySegAsso')), Also('passenger', TextOf(Bag, 'strKeyPasAsso'))]);
end;

procedure AddNames(Rows: TStrings; const Pnr: OleVariant; const Locator: string);
var
  Index: Integer;
  Bag: OleVariant;
begin
  for Index := 0 to Pnr.NameElementsCount - 1 do
  begin
    Bag := BagAt(Index);
    Pnr.NameElement(Bag);
    Rows.Add(CsvRow([Locator, 'name', TextOf(Bag, 'strKeyElementNr'),
      TextOf(Bag, 'strKeyLastName') + '/' + TextOf(Bag, 'strKeyInitial'), '', '', '', '', '',
      TextOf(Bag, 'strKeyPapType')]));
  end;
end;

{ Flights have times when they are neither open nor flown. }
procedure AddSegments(Rows: TStrings; const Pnr: OleVariant; const Locator: string);
var
  Index: Integer;
  Bag: OleVariant;
begin
  for Index := 0 to Pnr.AllAirSegmentsCount - 1 do
  begin
    Bag := BagAt(Index);
    Pnr.AllAirSegments(Bag);
    Rows.Add(CsvRow([Locator, 'segment', TextOf(Bag, 'strKeySegmentNr'),
      TextOf(Bag, 'strKeyAirline') + ' ' + TextOf(Bag, 'strKeyNumber'), TextOf(Bag, 'strKeyDepCity'),
      TextOf(Bag, 'strKeyArrCity'), TextOf(Bag, 'strKeyDepDate'), TextOf(Bag, 'strKeyDepTime'),
      TextOf(Bag, 'strKeyArrTime'), 'class ' + TextOf(Bag, 'strKeyClass')]));
  end;
end;

function Element(const Pnr: OleVariant; const Kind: string; Index: Integer): OleVariant;
begin
  Result := BagAt(Index);
  Result.Add('strKeyPNRElement', Kind);
  Pnr.Elements(Result);
end;

procedure AddTickets(Rows: TStrings; const Pnr: OleVariant; const Locator: string);
var
  Index: Integer;
  Bag: OleVariant;
begin
  for Index := 0 to Pnr.AutoTktElementsCount - 1 do
  begin
    Bag := Element(Pnr, 'FA', Index);
    Rows.Add(CsvRow([Locator, 'ticket', TextOf(Bag, 'strKeyElementNr'), TextOf(Bag, 'strKeyTktNbr'), '', '', '', '',
      '', Belonging(Bag)]));
  end;
end;

procedure AddServices(Rows: TStrings; const Pnr: OleVariant; const Locator: string);
var
  Index: Integer;
  Bag: OleVariant;
begin
  for Index := 0 to Pnr.SpecialServiceElementsCount - 1 do
  begin
    Bag := Element(Pnr, 'SSR', Index);
    Rows.Add(CsvRow([Locator, 'service', TextOf(Bag, 'strKeyElementNr'), TextOf(Bag, 'strKeyCode'), '', '', '', '',
      '', Joined([TextOf(Bag, 'strKeyAirline'), TextOf(Bag, 'strKeyStatus'), Belonging(Bag)])]));
  end;
end;

{ All rows of a PNR at once: one that cannot be read to its end leaves no half of it. }
procedure WritePnr(const Locator: string);
var
  Pnr: OleVariant;
  Rows: TStringList;
  Index: Integer;
begin
  Pnr := NewObject('Wendrill23.CPNR');  { a new one for each PNR: it keeps the creation line }
  Rows := TStringList.Create;
  try
    AddNames(Rows, Pnr, Locator);
    AddSegments(Rows, Pnr, Locator);
    AddTickets(Rows, Pnr, Locator);
    AddServices(Rows, Pnr, Locator);
    for Index := 0 to Rows.Count - 1 do
      WriteLn(Rows[Index]);
  finally
    Rows.Free;
  end;
end;

procedure WriteAll;
var
  Quillet: OleVariant;
  Index: Integer;
begin
  Quillet := NewObject('Wendrill23.CQuillet');  { connects to the running session }
  WriteLn('locator,kind,number,what,from,to,date,departs,arrives,detail');
  for Index := 0 to Locators.Count - 1 do
  begin
    Current := Locators[Index];
    if Quillet.RetrieveRecLoc(Current) then
      WritePnr(Current)
    else
      Tell('There is no PNR ' + Current + '.');
  end;
end;

function InPnr: string;
begin
  Result := '';
  if Current <> '' then
    Result := ' in PNR ' + Current;
end;

begin
  Locators := TStringList.Create;
  try
    ReadLocators;
    if Locators.Count = 0 then
    begin
      Tell('Name record locators, or a file with one on each line.');
      ExitCode := 2;
    end
    else
      WriteAll;
  except
    on Error: Exception do
    begin
      TellError(Error, InPnr);
      ExitCode := 1;
    end;
  end;
  Locators.Free;
end.

unit Broken;

{ Half way through being typed. }

interface

uses
  Windows, Messages;

type
  TBefore = class
    procedure Work;
  end;

implementation

uses
  Dialogs;

procedure TBefore.Work;
begin
  if Visible
    Show;
  Close;
end;

function Half: Integer;
begin
  Result := (1 + ;
  while Result < 10 Result := Result + 1;
end;

type
  TAfter = record
    X: Integer;
  end;

procedure Whole;
begin
  for I = 0 to 9 do
    Work;
  ShowMessage('done');
end;

initialization
  Whole;
end.

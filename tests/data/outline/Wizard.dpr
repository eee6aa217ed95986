program Wizard(Input, Output);

uses
  Forms,
  WizardMain in 'WizardMain.pas' {MainForm},
  WizardPages in 'WizardPages.pas';

{$R *.RES}

type
  TStage = (stWelcome, stChoose, stDone);

var
  Stage: TStage;

procedure Advance;
begin
  if Stage < High(TStage) then
    Inc(Stage);
end;

function Title(Stage: TStage): string;
const
  Titles: array[TStage] of string = ('Welcome', 'Choose', 'Done');

  function Numbered: string;
  begin
    Result := IntToStr(Ord(Stage) + 1) + ' ' + Titles[Stage];
  end;

begin
  Result := Numbered;
end;

begin
  Application.Initialize;
  Application.Title := Title(Stage);
  Application.CreateForm(TMainForm, MainForm);
  repeat
    Advance;
  until Stage = stDone;
  Application.Run;
end.

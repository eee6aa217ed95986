program Headed(Input, Output);

{$APPTYPE CONSOLE}

uses
  SysUtils,
  Main in 'src\Main.pas' {MainForm};

exports
  Start index 1 name 'StartUp' resident,
  Stop name StopName,
  Pause;

procedure Start;
begin
end;

begin
  Start
end.
